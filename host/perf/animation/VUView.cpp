#include "VUView.h"

#include "VUViewAnimation.h"

#include <QPainter>

VUView::VUView(QSizeF size, QGraphicsItem *parent) : QGraphicsObject(parent), m_bounds(QPointF(0, 0), size) {}

void VUView::setBounds(const QRectF &bounds)
{
    if (bounds == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = bounds;
}

void VUView::setCornerRadius(double radius)
{
    if (radius == m_cornerRadius)
        return;
    m_cornerRadius = radius;
    update();
}

void VUView::setGeometry(const VUViewGeometry &geometry)
{
    setCenter(geometry.center);
    setBounds(geometry.bounds);
    setTransform(geometry.transform);
    setCornerRadius(geometry.cornerRadius);
}

void VUView::setBackgroundColor(const QColor &color)
{
    m_background = color;
    update();
}

void VUView::setBorder(double width, const QColor &color)
{
    m_borderWidth = width;
    m_borderColor = color;
    update();
}

void VUView::removeAllAnimations()
{
    if (m_animation)
        m_animation->cancel();
}

QRectF VUView::boundingRect() const
{
    const QSizeF size = m_bounds.size();
    return QRectF(-size.width() / 2, -size.height() / 2, size.width(), size.height());
}

void VUView::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QRectF rect = boundingRect();
    painter->setRenderHint(QPainter::Antialiasing);
    if (m_background.isValid()) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(m_background);
        painter->drawRoundedRect(rect, m_cornerRadius, m_cornerRadius);
    }
    if (m_borderWidth > 0) {
        // The border lies inside the bounds, as a layer's does.
        const double inset = m_borderWidth / 2;
        painter->setPen(QPen(m_borderColor, m_borderWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter->setBrush(Qt::NoBrush);
        const double radius = std::max(0.0, m_cornerRadius - inset);
        painter->drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    }
}
