#include "TwoTouchGestureRecognizer.h"

namespace ui {

void TwoTouchGestureRecognizer::report(double value, double timestamp)
{
    const double dt = timestamp - m_lastTime;
    if (dt > 0)
        m_velocity = (value - m_value) / dt;
    m_value = value;
    m_lastTime = timestamp;
    setState(state() == State::Possible ? State::Began : State::Changed);
}

void TwoTouchGestureRecognizer::restart(double value)
{
    m_value = value;
    m_velocity = 0;
}

void TwoTouchGestureRecognizer::touchesEnded(const QList<Touch> &ended, double)
{
    const qsizetype remaining = touches().size() - ended.size();
    if (state() == State::Began || state() == State::Changed) {
        if (remaining < 2)
            setState(State::Ended);
    } else if (remaining == 0) {
        setState(State::Failed);
    }
}

void TwoTouchGestureRecognizer::reset()
{
    m_velocity = 0;
}

} // namespace ui
