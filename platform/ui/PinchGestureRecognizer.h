#pragma once
// A continuous two-touch pinch: begins once the distance between the touches has changed by a
// few points, then reports the scale relative to that distance at touch-down and its velocity
// in scale per second. It ends when fewer than two touches are left.

#include "TwoTouchGestureRecognizer.h"

namespace ui {

class PinchGestureRecognizer : public TwoTouchGestureRecognizer {
    Q_OBJECT
public:
    explicit PinchGestureRecognizer(QWidget *view);

    double scale() const { return lastValue(); }
    // Sets the scale; later changes multiply onto it.
    void setScale(double scale);

protected:
    void touchesBegan(const QList<Touch> &touches, double timestamp) override;
    void touchesMoved(const QList<Touch> &touches, double timestamp) override;
    void reset() override;

private:
    double spread() const;

    double m_initialSpread = 0;
    double m_base = 1;
};

} // namespace ui
