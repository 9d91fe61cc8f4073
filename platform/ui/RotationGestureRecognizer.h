#pragma once
// A continuous two-touch rotation: begins once the line between the touches has turned by a few
// degrees, then reports the turn since touch-down in radians (clockwise on screen positive, as y
// points down) and its velocity in radians per second. It ends when fewer than two touches are
// left. Turns add up past a half turn: two full turns are 4 pi, not 0.

#include "TwoTouchGestureRecognizer.h"

namespace ui {

class RotationGestureRecognizer : public TwoTouchGestureRecognizer {
    Q_OBJECT
public:
    // How far the touches must turn before the rotation begins, in radians.
    static constexpr double kBeginAngle = 0.05;

    explicit RotationGestureRecognizer(QWidget *view);

    double rotation() const { return lastValue(); }
    // Sets the rotation; later turns add onto it.
    void setRotation(double rotation);

protected:
    void touchesBegan(const QList<Touch> &touches, double timestamp) override;
    void touchesMoved(const QList<Touch> &touches, double timestamp) override;
    void reset() override;

private:
    double angle() const;

    bool m_tracking = false;
    double m_lastAngle = 0;
    double m_turned = 0;
    double m_base = 0;
};

} // namespace ui
