#include "VUProgressRingView.h"

#include "ui/DisplayLink.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

VUProgressRingView::VUProgressRingView(QWidget *parent) : VUBadgeView(kDefaultSize, parent)
{
    setColor(QColor(0, 122, 255));
}

VUProgressRingView::~VUProgressRingView() = default;

void VUProgressRingView::paintProgressRing(QPainter &painter, const QRectF &rect, State state, double progress, const QColor &color,
                                           double lineWidth, double phase)
{
    const QRectF ring = rect.adjusted(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
    QColor track = color;
    track.setAlphaF(color.alphaF() * 0.25);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(state == State::Completed ? color : track, lineWidth));
    painter.drawEllipse(ring);
    painter.setPen(QPen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // Qt's angles are sixteenths of a degree, counter-clockwise from three o'clock.
    switch (state) {
    case State::Determinate: {
        const double fraction = std::clamp(progress, 0.0, 1.0);
        if (fraction > 0)
            painter.drawArc(ring, 90 * 16, -int(std::lround(fraction * 360 * 16)));
        break;
    }
    case State::Indeterminate: {
        const double turn = phase - std::floor(phase);
        painter.drawArc(ring, int(std::lround((90 - turn * 360) * 16)), -90 * 16);
        break;
    }
    case State::Completed: {
        const auto at = [&](double x, double y) { return QPointF(rect.left() + x * rect.width(), rect.top() + y * rect.height()); };
        QPainterPath check(at(0.3, 0.52));
        check.lineTo(at(0.45, 0.66));
        check.lineTo(at(0.71, 0.37));
        painter.drawPath(check);
        break;
    }
    }
    painter.restore();
}

void VUProgressRingView::setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    updateSpinning();
    update();
}

void VUProgressRingView::setProgress(double progress)
{
    progress = std::clamp(progress, 0.0, 1.0);
    if (progress == m_progress)
        return;
    m_progress = progress;
    update();
}

void VUProgressRingView::setLineWidth(double width)
{
    if (width == m_lineWidth)
        return;
    m_lineWidth = width;
    update();
}

void VUProgressRingView::paintGlyph(QPainter &painter, const QRectF &rect) const
{
    paintProgressRing(painter, rect, m_state, m_progress, color(), m_lineWidth, m_phase);
}

void VUProgressRingView::showEvent(QShowEvent *event)
{
    VUBadgeView::showEvent(event);
    updateSpinning();
}

void VUProgressRingView::hideEvent(QHideEvent *event)
{
    VUBadgeView::hideEvent(event);
    updateSpinning();
}

// Only a visible indeterminate ring takes frames.
void VUProgressRingView::updateSpinning()
{
    const bool spinning = m_state == State::Indeterminate && isVisible();
    if (spinning == (m_link != nullptr))
        return;
    if (!spinning) {
        m_link->invalidate();
        delete m_link.data();
        return;
    }
    m_lastFrame = -1;
    m_link = new ui::DisplayLink([this](ui::DisplayLink &link) {
        if (m_lastFrame >= 0)
            m_phase += (link.timestamp() - m_lastFrame) * kSpinRate;
        m_lastFrame = link.timestamp();
        update();
    }, this);
    m_link->schedule(this);
}
