#pragma once
// Two views that must move as one: A (orange) by the toolkit's spring animation, which takes its
// initial velocity relative to the distance to travel, B (a red outline) by the host's spring
// routine, which takes an absolute display velocity converted from A's. If the conversion is
// right, B stays on A through every move, resize, scale and rotation, however they interrupt each
// other. Timing and velocity come from the animation settings.

#include "perf/playgrounds/VUTesterAnimationsPlaygroundViewController.h"

#include "perf/animation/VUDisplayVelocity.h"

#include <QRectF>
#include <QTransform>

#include <functional>

class VUTESTER_EXPORT VUTesterInitialVelocitiesPlaygroundViewController : public VUTesterAnimationsPlaygroundViewController {
    Q_OBJECT
public:
    using RandomSource = std::function<quint32()>;

    VUTesterInitialVelocitiesPlaygroundViewController();

    void animateViewsToCenter(QPointF center) override;
    void resetViewsToCenter(QPointF center) override;
    void _scaleViewsRandomly();
    void _resizeViewsRandomly();
    void _rotateViewsRandomly();

    VUView *testViewA() const { return _testViewA; }
    VUView *testViewB() const { return _testViewB; }
    // The display velocity B was last given.
    VUDisplayVelocity lastVelocityOfB() const { return m_lastVelocity; }
    // Uniform 32-bit numbers; the system's generator by default.
    void setRandomSource(RandomSource source) { m_random = std::move(source); }

protected:
    void viewDidLoad() override;

private:
    struct Parameters {
        double duration, delay, damping, velocity;
    };
    Parameters parameters() const;
    double randomFraction() const;
    // A by the toolkit's spring, B by the host's routine with `velocity`.
    void animate(QPointF center, const QRectF &bounds, const QTransform &transform, VUDisplayVelocity velocity);

    VUView *_testViewA = nullptr;
    VUView *_testViewB = nullptr;
    QList<VUView *> _testViews;
    RandomSource m_random;
    VUDisplayVelocity m_lastVelocity;
};
