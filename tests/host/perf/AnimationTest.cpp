// The host's velocity filter, transform helpers and spring animations.

#include "perf/animation/VUSpring.h"
#include "perf/animation/VUTransforms.h"
#include "perf/animation/VUVelocityFilter.h"
#include "perf/animation/VUView.h"
#include "perf/animation/VUViewAnimation.h"

#include "ui/DisplayLink.h"
#include "ui/Settle.h"

#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

TEST(VelocityFilter, MeasuresStraightMotionExactlyHoweverUnevenlySampled)
{
    VUVelocityFilter filter = VUVelocityFilter::gestureVelocityFilter();
    EXPECT_EQ(filter.outputValue(), 0);
    filter.addSample(100, 10.0);
    EXPECT_EQ(filter.outputValue(), 0) << "one sample says nothing about speed";
    // -750 points per second, sampled at wildly uneven moments.
    double t = 10.0;
    for (double step : {0.001, 0.030, 0.004, 0.016, 0.0005, 0.022, 0.008}) {
        t += step;
        filter.addSample(100 - 750 * (t - 10.0), t);
        EXPECT_NEAR(filter.outputValue(), -750, 1e-6) << "after a step of " << step;
    }
}

TEST(VelocityFilter, SmoothsJitterThatTwoPointDifferencesAmplify)
{
    // 1000 points per second with a quarter-point of alternating jitter every 4 ms.
    VUVelocityFilter filter = VUVelocityFilter::gestureVelocityFilter();
    double lastTwoPoint = 0, previous = 0;
    for (int i = 0; i <= 25; ++i) {
        const double t = 0.004 * i;
        const double x = 1000 * t + (i % 2 ? 0.25 : -0.25);
        filter.addSample(x, t);
        if (i > 0)
            lastTwoPoint = (x - previous) / 0.004;
        previous = x;
    }
    EXPECT_GT(std::abs(lastTwoPoint - 1000), 100) << "the naive estimate is off by an eighth";
    EXPECT_LT(std::abs(filter.outputValue() - 1000), 20);
}

TEST(VelocityFilter, ASampleAtTheSameMomentReplacesTheLastAndOldSamplesAgeOut)
{
    VUVelocityFilter filter = VUVelocityFilter::gestureVelocityFilter();
    filter.addSample(0, 1.0);
    filter.addSample(10, 1.01);
    filter.addSample(20, 1.01); // the same event delivered twice, with a newer position
    EXPECT_NEAR(filter.outputValue(), 2000, 1e-6);
    EXPECT_EQ(filter.inputValue(), 20);
    // A slow drag far from that quick start: only the last tenth of a second counts.
    for (int i = 1; i <= 20; ++i)
        filter.addSample(20 + 100 * (0.01 * i), 2.0 + 0.01 * i);
    EXPECT_NEAR(filter.outputValue(), 100, 1e-6);
}

TEST(Transforms, ComposeAndDecomposeAreInverseAndAnglesTakeTheShortWay)
{
    struct Case {
        QPointF t;
        double sx, sy, a;
    } cases[] = {{{0, 0}, 1, 1, 0}, {{12, -4}, 2, 2, 0.5}, {{0, 0}, 0.5, 3, -2.5}, {{3, 3}, 1, -1, 1.0}, {{0, 0}, 1, 1, M_PI}};
    for (const Case &c : cases) {
        const VUTransformComponents d = VUDecomposeTransform(VUComposeTransform(c.t, c.sx, c.sy, c.a));
        EXPECT_TRUE(VUPointIsApproximatelyEqualToPoint(d.translation, c.t));
        EXPECT_NEAR(d.xScale, c.sx, 1e-12);
        EXPECT_NEAR(d.yScale, c.sy, 1e-12) << "a reflection shows as a negative y scale";
        EXPECT_NEAR(VUAngleDifference(d.rotation, c.a), 0, 1e-12);
    }
    // Positive angles turn clockwise on a y-down screen: (1, 0) goes to (0, 1).
    EXPECT_TRUE(VUPointIsApproximatelyEqualToPoint(VUComposeTransform({}, 1, 1, M_PI / 2).map(QPointF(1, 0)), QPointF(0, 1)));
    // Applied before the base: scale, then move by the base.
    EXPECT_EQ(VUComposeTransform({}, 2, 2, 0, QTransform::fromTranslate(5, 0)).map(QPointF(1, 1)), QPointF(7, 2));

    EXPECT_NEAR(VUAngleDifference(0.1, -0.1), -0.2, 1e-12);
    EXPECT_NEAR(VUAngleDifference(3.0, -3.0), 2 * M_PI - 6.0, 1e-12) << "across pi, the short way";
    EXPECT_NEAR(VUAngleDifference(1.0, 1.0 + 4 * M_PI), 0, 1e-9) << "whole turns make no difference";
    EXPECT_NEAR(std::abs(VUAngleDifference(-M_PI / 2, M_PI / 2)), M_PI, 1e-12);
    EXPECT_FALSE(VUPointIsApproximatelyEqualToPoint({0, 0}, {0, 0.002}));
    EXPECT_TRUE(VUPointIsApproximatelyEqualToPoint({5, 5}, {5.0004, 4.9996}));
}

TEST(Spring, StartsWhereAndHowFastItIsToldAndRestsOnItsTargetAtTheEnd)
{
    for (double damping : {0.0, 0.3, 1.0}) {
        const VUSpring spring(0.8, damping);
        EXPECT_EQ(spring.value(10, 50, 300, 0), 10);
        const double h = 1e-6;
        EXPECT_NEAR((spring.value(10, 50, 300, h) - spring.value(10, 50, 300, 0)) / h, 300, 0.5) << "damping " << damping;
        EXPECT_EQ(spring.value(10, 50, 300, 0.8), 50);
        EXPECT_EQ(spring.value(10, 50, 300, 5), 50);
    }
    // Settled to a thousandth of its travel just before the end.
    EXPECT_NEAR(VUSpring(1, 0.5).value(0, 100, 0, 0.999), 100, 0.2);
}

namespace {

struct AnimationFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    VUView a{QSizeF(80, 60)};
    VUView b{QSizeF(80, 60)};

    void expectTogether(const char *what)
    {
        EXPECT_TRUE(VUPointIsApproximatelyEqualToPoint(a.center(), b.center())) << what;
        EXPECT_NEAR(a.bounds().width(), b.bounds().width(), 1e-6) << what;
        EXPECT_NEAR(a.bounds().height(), b.bounds().height(), 1e-6) << what;
        for (double m : {a.transform().m11() - b.transform().m11(), a.transform().m12() - b.transform().m12(),
                         a.transform().m21() - b.transform().m21(), a.transform().m22() - b.transform().m22()})
            EXPECT_NEAR(m, 0, 1e-9) << what;
    }
};

} // namespace

TEST_F(AnimationFixture, RelativeAndAbsoluteVelocitiesForTheSameMotionMoveViewsIdentically)
{
    const double v = 5, duration = 1, damping = 0.5;
    const auto both = [&](const VUViewGeometry &target, VUDisplayVelocity velocity) {
        VUAnimateViewWithSpring(&a, target, duration, 0, damping, v, VUViewAnimationOption::BeginFromCurrentState);
        vu_animateView(&b, target.center, target.bounds, target.transform, duration, 0, damping, velocity,
                       VUViewAnimationOption::BeginFromCurrentState);
    };
    a.setCenter({40, 30});
    b.setCenter({40, 30});
    VUViewGeometry target = a.geometry();
    target.center = {300, 500};
    both(target, {v * 260, v * 470, 0, 0});
    frames.step(9);
    expectTogether("moving");
    EXPECT_GT(std::hypot(a.center().x() - 40, a.center().y() - 30), 100) << "and they did move";

    // Interrupted mid-flight by a resize from where they are shown.
    target = a.geometry();
    target.bounds = QRectF(0, 0, 200, 150);
    both(target, {0, 0, v * (200.0 / 80 - 1), 0});
    frames.step(7);
    expectTogether("resizing");

    target = a.geometry();
    target.transform = VUComposeTransform({}, 2.5, 2.5, 0);
    both(target, {0, 0, v * (2.5 - 1), 0});
    frames.step(5);
    expectTogether("scaling");

    const VUTransformComponents scaled = VUDecomposeTransform(a.transform());
    target = a.geometry();
    target.transform = VUComposeTransform({}, scaled.xScale, scaled.yScale, -1.2);
    both(target, {0, 0, 0, v * VUAngleDifference(scaled.rotation, -1.2)});
    frames.step(11);
    expectTogether("rotating");
    frames.step(70);
    expectTogether("at rest");
    // Each interruption aimed at where A was then; the last aim is where both rest.
    EXPECT_EQ(a.center(), target.center);
    EXPECT_EQ(a.bounds(), target.bounds);
    EXPECT_EQ(a.animation(), nullptr);
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
}

TEST_F(AnimationFixture, ReplacingOrRemovingAnAnimationTellsItsCompletionItDidNotFinish)
{
    std::vector<bool> finished;
    VUViewGeometry target = a.geometry();
    target.center = {200, 0};
    VUAnimateViewWithSpring(&a, target, 0.5, 0, 1, 0, VUViewAnimationOption::BeginFromCurrentState,
                            [&](bool done) { finished.push_back(done); });
    EXPECT_EQ(ui::Settle::pendingCount(), 1);
    frames.step(3);
    const QPointF midway = a.center();
    target.center = {0, 200};
    // Without beginning from what is shown, the first move jumps to its end before the second.
    VUAnimateViewWithSpring(&a, target, 0.5, 0, 1, 0, VUViewAnimationOption::None, [&](bool done) { finished.push_back(done); });
    EXPECT_EQ(finished, std::vector<bool>{false});
    EXPECT_EQ(a.center(), QPointF(200, 0)) << "was at " << midway.x();
    frames.step(2);
    a.removeAllAnimations();
    EXPECT_EQ(finished, (std::vector<bool>{false, false}));
    const QPointF stopped = a.center();
    frames.step(40);
    EXPECT_EQ(a.center(), stopped) << "a removed animation moves nothing more";

    // A delay holds the view where it was; the move then ends on time.
    target.center = {100, 100};
    VUAnimateViewWithSpring(&a, target, 0.2, 0.1, 1, 0, VUViewAnimationOption::BeginFromCurrentState,
                            [&](bool done) { finished.push_back(done); });
    frames.step(5);
    EXPECT_EQ(a.center(), stopped);
    frames.step(14);
    EXPECT_EQ(a.center(), QPointF(100, 100));
    EXPECT_EQ(finished.back(), true);
}
