#include "TapGestureRecognizer.h"

#include <QApplication>
#include <QLineF>

namespace ui {

TapGestureRecognizer::TapGestureRecognizer(QWidget *view)
    : GestureRecognizer(view), m_maximumTapInterval(QApplication::doubleClickInterval() / 1000.0)
{
    m_nextTapTimer.setSingleShot(true);
    connect(&m_nextTapTimer, &QTimer::timeout, this, [this] {
        if (isWaitingForTouches())
            fail();
    });
}

void TapGestureRecognizer::touchesBegan(const QList<Touch> &touches, double timestamp)
{
    if (touches.size() == this->touches().size()) {
        // The first touch of a tap.
        m_nextTapTimer.stop();
        m_starts.clear();
        m_touchesInTap = 0;
    }
    m_starts.append(touches);
    m_touchesInTap = qMax(m_touchesInTap, int(this->touches().size()));
}

void TapGestureRecognizer::sequenceWillBegin(double timestamp)
{
    // Judged by the touches' own clock as well as the timer, so input replayed faster or slower
    // than real time is judged the same.
    if (isWaitingForTouches() && timestamp - m_lastTapEnd > m_maximumTapInterval)
        fail();
}

void TapGestureRecognizer::touchesMoved(const QList<Touch> &touches, double)
{
    for (const Touch &t : touches)
        for (const Touch &start : std::as_const(m_starts))
            if (start.id == t.id && QLineF(start.globalPosition, t.globalPosition).length() > m_allowableMovement) {
                fail();
                return;
            }
}

void TapGestureRecognizer::touchesEnded(const QList<Touch> &touches, double timestamp)
{
    touchesMoved(touches, timestamp);
    if (state() != State::Possible || touches.size() < this->touches().size())
        return; // failed, or some touches of the tap are still down
    if (m_touchesInTap != m_touchesRequired) {
        fail();
        return;
    }
    m_lastTapEnd = timestamp;
    if (++m_taps == m_tapsRequired)
        setState(Recognized);
    else
        m_nextTapTimer.start(int(m_maximumTapInterval * 1000));
}

void TapGestureRecognizer::fail()
{
    m_nextTapTimer.stop();
    setState(State::Failed);
}

void TapGestureRecognizer::reset()
{
    m_nextTapTimer.stop();
    m_taps = 0;
    m_touchesInTap = 0;
    m_starts.clear();
}

} // namespace ui
