#include "RotationGestureRecognizer.h"

#include <cmath>

namespace ui {

RotationGestureRecognizer::RotationGestureRecognizer(QWidget *view) : GestureRecognizer(view) {}

double RotationGestureRecognizer::angle() const
{
    const QPointF d = touches()[1].globalPosition - touches()[0].globalPosition;
    return std::atan2(d.y(), d.x());
}

void RotationGestureRecognizer::setRotation(double rotation)
{
    m_base = rotation - m_turned;
    m_rotation = rotation;
    m_velocity = 0;
}

void RotationGestureRecognizer::touchesBegan(const QList<Touch> &, double timestamp)
{
    if (touches().size() == 2 && state() == State::Possible) {
        m_tracking = true;
        m_lastAngle = angle();
        m_turned = 0;
        m_lastTime = timestamp;
    }
}

void RotationGestureRecognizer::touchesMoved(const QList<Touch> &, double timestamp)
{
    if (touches().size() < 2 || !m_tracking)
        return;
    // Each step turns the short way round, so the sum keeps counting across the half turn.
    const double now = angle();
    const double step = std::remainder(now - m_lastAngle, 2 * M_PI);
    m_lastAngle = now;
    m_turned += step;
    const bool possible = state() == State::Possible;
    if (possible && std::abs(m_turned) < kBeginAngle)
        return;
    const double rotation = m_base + m_turned;
    const double dt = timestamp - m_lastTime;
    if (dt > 0)
        m_velocity = (rotation - m_rotation) / dt;
    m_rotation = rotation;
    m_lastTime = timestamp;
    setState(possible ? State::Began : State::Changed);
}

void RotationGestureRecognizer::touchesEnded(const QList<Touch> &ended, double)
{
    const qsizetype remaining = touches().size() - ended.size();
    if (state() == State::Began || state() == State::Changed) {
        if (remaining < 2)
            setState(State::Ended);
    } else if (remaining == 0) {
        setState(State::Failed);
    }
}

void RotationGestureRecognizer::reset()
{
    m_tracking = false;
    m_turned = 0;
    m_base = 0;
    m_rotation = 0;
    m_velocity = 0;
}

} // namespace ui
