#include "VUFavoriteBadgeView.h"

#include <QPainter>
#include <QPainterPath>

VUFavoriteBadgeView::VUFavoriteBadgeView(QWidget *parent) : VUBadgeView(kDefaultSize, parent) {}

QPainterPath VUFavoriteBadgeView::heartPath(const QRectF &rect)
{
    // Two lobes meeting in a notch at the top, closing to a point at the bottom.
    const double w = rect.width(), h = rect.height();
    const auto at = [&](double x, double y) { return QPointF(rect.left() + x * w, rect.top() + y * h); };
    QPainterPath heart(at(0.5, 0.93));
    heart.cubicTo(at(0.2, 0.7), at(0.0, 0.5), at(0.03, 0.3));
    heart.cubicTo(at(0.07, 0.08), at(0.38, 0.02), at(0.5, 0.24));
    heart.cubicTo(at(0.62, 0.02), at(0.93, 0.08), at(0.97, 0.3));
    heart.cubicTo(at(1.0, 0.5), at(0.8, 0.7), at(0.5, 0.93));
    heart.closeSubpath();
    return heart;
}

void VUFavoriteBadgeView::paintFavoriteBadge(QPainter &painter, const QRectF &rect, const QColor &color, bool favorite)
{
    const QPainterPath heart = heartPath(rect);
    const double line = std::max(1.0, rect.width() / 12);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(heart, QPen(VUBadgeOutlineColor(), line + 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (favorite)
        painter.fillPath(heart, color);
    else
        painter.strokePath(heart, QPen(color, line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}

void VUFavoriteBadgeView::setFavorite(bool favorite)
{
    if (favorite == m_favorite)
        return;
    m_favorite = favorite;
    update();
}

void VUFavoriteBadgeView::paintGlyph(QPainter &painter, const QRectF &rect) const
{
    paintFavoriteBadge(painter, rect, color(), m_favorite);
}
