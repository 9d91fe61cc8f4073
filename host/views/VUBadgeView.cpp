#include "VUBadgeView.h"

#include <QPainter>

#include <cmath>

VUBadgeView::VUBadgeView(double glyphSize, QWidget *parent) : QWidget(parent), m_glyphSize(glyphSize)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void VUBadgeView::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
}

void VUBadgeView::setGlyphSize(double size)
{
    if (size == m_glyphSize)
        return;
    m_glyphSize = size;
    glyphChanged();
}

void VUBadgeView::glyphChanged()
{
    updateGeometry();
    update();
}

QSize VUBadgeView::sizeHint() const
{
    // Room for the outline round the glyph.
    const int side = int(std::ceil(m_glyphSize)) + 4;
    return {side, side};
}

void VUBadgeView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre = QRectF(rect()).center();
    paintGlyph(painter, QRectF(centre.x() - m_glyphSize / 2, centre.y() - m_glyphSize / 2, m_glyphSize, m_glyphSize));
}
