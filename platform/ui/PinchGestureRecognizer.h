#pragma once
// A continuous two-touch pinch: begins once the distance between the touches has changed by a
// few points, then reports the scale relative to that distance at touch-down and its velocity
// in scale per second. It ends when fewer than two touches are left.

#include "GestureRecognizer.h"

namespace ui {

class PinchGestureRecognizer : public GestureRecognizer {
    Q_OBJECT
public:
    explicit PinchGestureRecognizer(QWidget *view);

    double scale() const { return m_scale; }
    // Sets the scale; later changes multiply onto it.
    void setScale(double scale);
    double velocity() const { return m_velocity; }

protected:
    void touchesBegan(const QList<Touch> &touches, double timestamp) override;
    void touchesMoved(const QList<Touch> &touches, double timestamp) override;
    void touchesEnded(const QList<Touch> &touches, double timestamp) override;
    void reset() override;

private:
    double spread() const;

    double m_initialSpread = 0;
    double m_base = 1;
    double m_scale = 1;
    double m_velocity = 0;
    double m_lastTime = 0;
};

} // namespace ui
