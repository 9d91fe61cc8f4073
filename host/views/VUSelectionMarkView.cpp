#include "VUSelectionMarkView.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

VUSelectionMarkView::VUSelectionMarkView(QWidget *parent) : VUBadgeView(kDefaultSize, parent)
{
    setColor(QColor(0, 122, 255));
}

void VUSelectionMarkView::paintSelectionMark(QPainter &painter, const QRectF &rect, const QColor &color, bool selected, bool enabled)
{
    const double ring = std::max(1.0, rect.width() / 14);
    const QRectF disc = rect.adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (!enabled)
        painter.setOpacity(0.4);
    painter.setPen(QPen(VUBadgeOutlineColor(), ring + 1.5));
    painter.setBrush(selected ? color : QColor(0, 0, 0, 40));
    painter.drawEllipse(disc);
    painter.setPen(QPen(Qt::white, ring));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(disc);
    if (selected) {
        const auto at = [&](double x, double y) { return QPointF(rect.left() + x * rect.width(), rect.top() + y * rect.height()); };
        QPainterPath check(at(0.28, 0.52));
        check.lineTo(at(0.44, 0.67));
        check.lineTo(at(0.72, 0.36));
        painter.strokePath(check, QPen(Qt::white, ring * 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.restore();
}

void VUSelectionMarkView::setSelected(bool selected)
{
    if (selected == m_selected)
        return;
    m_selected = selected;
    update();
}

void VUSelectionMarkView::paintGlyph(QPainter &painter, const QRectF &rect) const
{
    paintSelectionMark(painter, rect, color(), m_selected, isEnabled());
}

void VUSelectionMarkView::changeEvent(QEvent *event)
{
    VUBadgeView::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        update();
}
