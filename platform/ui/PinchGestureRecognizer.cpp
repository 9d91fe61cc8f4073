#include "PinchGestureRecognizer.h"

#include <QLineF>

#include <cmath>

namespace ui {

namespace {

// How far the touches must move apart or together before the pinch begins.
constexpr double kBeginDistance = 5;

} // namespace

PinchGestureRecognizer::PinchGestureRecognizer(QWidget *view) : GestureRecognizer(view) {}

double PinchGestureRecognizer::spread() const
{
    const QList<Touch> &t = touches();
    return t.size() < 2 ? 0 : QLineF(t[0].globalPosition, t[1].globalPosition).length();
}

void PinchGestureRecognizer::setScale(double scale)
{
    const double current = m_initialSpread > 0 ? spread() / m_initialSpread : 1;
    m_base = current > 0 ? scale / current : scale;
    m_scale = scale;
    m_velocity = 0;
}

void PinchGestureRecognizer::touchesBegan(const QList<Touch> &, double timestamp)
{
    if (touches().size() == 2 && state() == State::Possible) {
        m_initialSpread = spread();
        m_lastTime = timestamp;
    }
}

void PinchGestureRecognizer::touchesMoved(const QList<Touch> &, double timestamp)
{
    if (touches().size() < 2 || m_initialSpread <= 0)
        return;
    const double current = spread();
    const bool possible = state() == State::Possible;
    if (possible && std::abs(current - m_initialSpread) < kBeginDistance)
        return;
    const double scale = m_base * current / m_initialSpread;
    const double dt = timestamp - m_lastTime;
    if (dt > 0)
        m_velocity = (scale - m_scale) / dt;
    m_scale = scale;
    m_lastTime = timestamp;
    setState(possible ? State::Began : State::Changed);
}

void PinchGestureRecognizer::touchesEnded(const QList<Touch> &ended, double)
{
    const qsizetype remaining = touches().size() - ended.size();
    if (state() == State::Began || state() == State::Changed) {
        if (remaining < 2)
            setState(State::Ended);
    } else if (remaining == 0) {
        setState(State::Failed);
    }
}

void PinchGestureRecognizer::reset()
{
    m_initialSpread = 0;
    m_base = 1;
    m_scale = 1;
    m_velocity = 0;
}

} // namespace ui
