#include "RotationGestureRecognizer.h"

#include <cmath>

namespace ui {

RotationGestureRecognizer::RotationGestureRecognizer(QWidget *view) : TwoTouchGestureRecognizer(view) {}

double RotationGestureRecognizer::angle() const
{
    const QPointF d = touches()[1].globalPosition - touches()[0].globalPosition;
    return std::atan2(d.y(), d.x());
}

void RotationGestureRecognizer::setRotation(double rotation)
{
    m_base = rotation - m_turned;
    restart(rotation);
}

void RotationGestureRecognizer::touchesBegan(const QList<Touch> &, double timestamp)
{
    if (touches().size() == 2 && state() == State::Possible) {
        m_tracking = true;
        m_lastAngle = angle();
        m_turned = 0;
        startClock(timestamp);
    }
}

void RotationGestureRecognizer::touchesMoved(const QList<Touch> &, double timestamp)
{
    if (touches().size() < 2 || !m_tracking)
        return;
    // Each step turns the short way round, so the sum keeps counting across the half turn.
    const double now = angle();
    m_turned += std::remainder(now - m_lastAngle, 2 * M_PI);
    m_lastAngle = now;
    if (state() == State::Possible && std::abs(m_turned) < kBeginAngle)
        return;
    report(m_base + m_turned, timestamp);
}

void RotationGestureRecognizer::reset()
{
    TwoTouchGestureRecognizer::reset();
    m_tracking = false;
    m_turned = 0;
    m_base = 0;
    restart(0);
}

} // namespace ui
