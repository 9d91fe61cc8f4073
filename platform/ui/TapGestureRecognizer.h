#pragma once
// A discrete tap: `numberOfTapsRequired` taps in a row (2 for a double tap), each made with
// `numberOfTouchesRequired` touches down together, none moving further than
// `allowableMovement` points, and each following the previous one within
// `maximumTapInterval` seconds (the platform's double-click interval by default).

#include "GestureRecognizer.h"

#include <QTimer>

namespace ui {

class TapGestureRecognizer : public GestureRecognizer {
    Q_OBJECT
public:
    explicit TapGestureRecognizer(QWidget *view);

    int numberOfTapsRequired() const { return m_tapsRequired; }
    void setNumberOfTapsRequired(int taps) { m_tapsRequired = qMax(1, taps); }
    int numberOfTouchesRequired() const { return m_touchesRequired; }
    void setNumberOfTouchesRequired(int touches) { m_touchesRequired = qMax(1, touches); }
    double allowableMovement() const { return m_allowableMovement; }
    void setAllowableMovement(double points) { m_allowableMovement = points; }
    double maximumTapInterval() const { return m_maximumTapInterval; }
    void setMaximumTapInterval(double seconds) { m_maximumTapInterval = seconds; }

protected:
    void touchesBegan(const QList<Touch> &touches, double timestamp) override;
    void touchesMoved(const QList<Touch> &touches, double timestamp) override;
    void touchesEnded(const QList<Touch> &touches, double timestamp) override;
    void reset() override;
    bool isWaitingForTouches() const override { return m_taps > 0 && m_taps < m_tapsRequired && state() == State::Possible; }
    void sequenceWillBegin(double timestamp) override;

private:
    void fail();

    int m_tapsRequired = 1;
    int m_touchesRequired = 1;
    double m_allowableMovement = 10;
    double m_maximumTapInterval;
    int m_taps = 0;
    int m_touchesInTap = 0;
    double m_lastTapEnd = 0;
    QList<Touch> m_starts;
    // Ends the wait for the next tap when it does not come.
    QTimer m_nextTapTimer;
};

} // namespace ui
