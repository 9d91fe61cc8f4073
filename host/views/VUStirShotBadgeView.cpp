#include "VUStirShotBadgeView.h"

#include <QPainter>

VUStirShotBadgeView::VUStirShotBadgeView(QWidget *parent) : VUBadgeView(kDefaultSize, parent) {}

void VUStirShotBadgeView::paintStirShotBadge(QPainter &painter, QPointF centre, double diameter, const QColor &color, bool off)
{
    // Proportions of the 16-point mark.
    const double unit = diameter / 16;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const bool outline : {true, false}) {
        const QColor colour = outline ? VUBadgeOutlineColor() : color;
        const double widen = outline ? 1.2 * unit : 0;
        QPen dotted(colour, 1.3 * unit + widen, Qt::CustomDashLine, Qt::RoundCap);
        dotted.setDashPattern({0.1, 2.2});
        painter.setPen(dotted);
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, 8 * unit, 8 * unit);
        painter.setPen(QPen(colour, 1.4 * unit + widen));
        painter.drawEllipse(centre, 5 * unit, 5 * unit);
        if (off)
            painter.drawLine(centre + QPointF(-8, -8) * unit, centre + QPointF(8, 8) * unit);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(centre, 2.2 * unit + widen / 2, 2.2 * unit + widen / 2);
    }
    painter.restore();
}

void VUStirShotBadgeView::setOff(bool off)
{
    if (off == m_off)
        return;
    m_off = off;
    update();
}

void VUStirShotBadgeView::paintGlyph(QPainter &painter, const QRectF &rect) const
{
    paintStirShotBadge(painter, rect.center(), rect.width(), color(), m_off);
}
