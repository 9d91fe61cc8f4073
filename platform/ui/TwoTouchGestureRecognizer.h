#pragma once
// The common part of continuous two-touch gestures (pinch, rotation): each tracks one value from
// touch-down, begins once it has changed enough, reports it with its velocity, and ends when
// fewer than two touches are left (or fails, when it never began, once all have lifted).

#include "GestureRecognizer.h"

namespace ui {

class TwoTouchGestureRecognizer : public GestureRecognizer {
    Q_OBJECT
public:
    // Per second.
    double velocity() const { return m_velocity; }

protected:
    using GestureRecognizer::GestureRecognizer;

    // The tracked value is now `value`: begins the gesture when still possible, or moves it on.
    void report(double value, double timestamp);
    // Starts the velocity afresh from `value` (a setter of the value).
    void restart(double value);
    // When the value was last reported, and what it was.
    double lastValue() const { return m_value; }
    void startClock(double timestamp) { m_lastTime = timestamp; }

    void touchesEnded(const QList<Touch> &touches, double timestamp) override;
    void reset() override;

private:
    double m_value = 0;
    double m_velocity = 0;
    double m_lastTime = 0;
};

} // namespace ui
