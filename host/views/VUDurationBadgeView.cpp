#include "VUDurationBadgeView.h"

#include <QLinearGradient>
#include <QPainter>

#include <cmath>

namespace {

// The shade is a little over twice as tall as the text.
double shadeHeight(double fontSize)
{
    return std::round(fontSize * 24 / 11);
}

} // namespace

VUDurationBadgeView::VUDurationBadgeView(QWidget *parent) : VUBadgeView(kDefaultFontSize, parent) {}

QString VUDurationBadgeView::textForDuration(double seconds)
{
    const qint64 s = std::llround(std::max(0.0, seconds));
    return s >= 3600 ? QString::asprintf("%lld:%02lld:%02lld", s / 3600, s / 60 % 60, s % 60)
                     : QString::asprintf("%lld:%02lld", s / 60, s % 60);
}

void VUDurationBadgeView::paintDurationBadge(QPainter &painter, const QRectF &cell, const QString &text, const QColor &color,
                                             double fontSize, bool shade)
{
    painter.save();
    if (shade) {
        const double height = shadeHeight(fontSize);
        const QRectF area(cell.left(), cell.bottom() - height, cell.width(), height);
        QLinearGradient gradient(area.topLeft(), area.bottomLeft());
        gradient.setColorAt(0, QColor(0, 0, 0, 0));
        gradient.setColorAt(1, QColor(0, 0, 0, 120));
        painter.fillRect(area, gradient);
    }
    QFont font = painter.font();
    font.setPixelSize(std::max(1, int(std::lround(fontSize))));
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(cell.adjusted(4, 4, -5, -3), Qt::AlignRight | Qt::AlignBottom, text);
    painter.restore();
}

void VUDurationBadgeView::setDuration(double seconds)
{
    if (seconds == m_duration)
        return;
    m_duration = seconds;
    glyphChanged();
}

void VUDurationBadgeView::setShowsShade(bool shows)
{
    if (shows == m_showsShade)
        return;
    m_showsShade = shows;
    update();
}

QSize VUDurationBadgeView::sizeHint() const
{
    QFont font = this->font();
    font.setPixelSize(std::max(1, int(std::lround(glyphSize()))));
    font.setWeight(QFont::DemiBold);
    const int textWidth = QFontMetrics(font).horizontalAdvance(textForDuration(m_duration));
    return {textWidth + 9, int(shadeHeight(glyphSize()))};
}

void VUDurationBadgeView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintDurationBadge(painter, rect(), textForDuration(m_duration), color(), glyphSize(), m_showsShade);
}
