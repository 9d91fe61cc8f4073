#include "PinchGestureRecognizer.h"

#include <QLineF>

#include <cmath>

namespace ui {

namespace {

// How far the touches must move apart or together before the pinch begins.
constexpr double kBeginDistance = 5;

} // namespace

PinchGestureRecognizer::PinchGestureRecognizer(QWidget *view) : TwoTouchGestureRecognizer(view)
{
    restart(1);
}

double PinchGestureRecognizer::spread() const
{
    const QList<Touch> &t = touches();
    return t.size() < 2 ? 0 : QLineF(t[0].globalPosition, t[1].globalPosition).length();
}

void PinchGestureRecognizer::setScale(double scale)
{
    const double current = m_initialSpread > 0 ? spread() / m_initialSpread : 1;
    m_base = current > 0 ? scale / current : scale;
    restart(scale);
}

void PinchGestureRecognizer::touchesBegan(const QList<Touch> &, double timestamp)
{
    if (touches().size() == 2 && state() == State::Possible) {
        m_initialSpread = spread();
        startClock(timestamp);
    }
}

void PinchGestureRecognizer::touchesMoved(const QList<Touch> &, double timestamp)
{
    if (touches().size() < 2 || m_initialSpread <= 0)
        return;
    const double current = spread();
    if (state() == State::Possible && std::abs(current - m_initialSpread) < kBeginDistance)
        return;
    report(m_base * current / m_initialSpread, timestamp);
}

void PinchGestureRecognizer::reset()
{
    TwoTouchGestureRecognizer::reset();
    m_initialSpread = 0;
    m_base = 1;
    restart(1);
}

} // namespace ui
