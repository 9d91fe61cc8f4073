// Swipe-down arithmetic: resistance, where the photo shows, how opaque the background is, and
// which releases dismiss; then the spring a release starts, stepped frame by frame.

#include <perf/animation/VUSpringDriver.h>
#include <swipedown/VUSwipeDownInteraction.h>

#include "ui/DisplayLink.h"
#include "ui/Settle.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace {

TEST(SwipeDownMathTest, RubberBandKeepsTheSignStartsAtTheCoefficientAndNeverReachesTheDimension)
{
    EXPECT_EQ(VURubberBandOffset(0, 800, 0.55), 0);
    EXPECT_NEAR(VURubberBandOffset(1, 800, 0.55), 0.55, 1e-3);
    EXPECT_NEAR(VURubberBandOffset(-1, 800, 0.55), -0.55, 1e-3);
    double last = 0;
    for (double travel : {50.0, 200.0, 800.0, 5000.0, 1e6}) {
        const double shown = VURubberBandOffset(travel, 800, 0.55);
        EXPECT_GT(shown, last) << travel;
        EXPECT_LT(shown, 0.55 * travel) << travel;
        EXPECT_LT(shown, 800) << travel;
        last = shown;
    }
    EXPECT_EQ(VURubberBandOffset(100, 0, 0.55), 0);
}

TEST(SwipeDownMathTest, DownIsFreeUpAndSidewaysResistOrDoNotMove)
{
    const QSizeF size(400, 800);
    VUSwipeDownParameters p;
    EXPECT_EQ(VUSwipeDownDisplayedOffset(QPointF(30, 200), size, p), QPointF(30, 200));
    const QPointF up = VUSwipeDownDisplayedOffset(QPointF(30, -200), size, p);
    EXPECT_NEAR(up.y(), VURubberBandOffset(-200, 800, 0.55), 1e-9);
    EXPECT_NEAR(up.x(), VURubberBandOffset(30, 400, 0.55), 1e-9) << "sideways resists while not going down";
    p.rubberBanding = false;
    EXPECT_EQ(VUSwipeDownDisplayedOffset(QPointF(30, -200), size, p), QPointF(0, 0));
    p.followsHorizontally = false;
    EXPECT_EQ(VUSwipeDownDisplayedOffset(QPointF(30, 200), size, p), QPointF(0, 200));
}

TEST(SwipeDownMathTest, BackgroundFadesOverTheDimmingDistanceToItsLeastOpacity)
{
    VUSwipeDownParameters p;
    p.dimmingDistance = 200;
    p.minimumBackgroundAlpha = 0.2;
    EXPECT_EQ(VUSwipeDownBackgroundAlpha(-50, p), 1);
    EXPECT_EQ(VUSwipeDownBackgroundAlpha(0, p), 1);
    EXPECT_NEAR(VUSwipeDownBackgroundAlpha(100, p), 0.6, 1e-9);
    EXPECT_NEAR(VUSwipeDownBackgroundAlpha(200, p), 0.2, 1e-9);
    EXPECT_NEAR(VUSwipeDownBackgroundAlpha(900, p), 0.2, 1e-9);
    p.dimsBackground = false;
    EXPECT_EQ(VUSwipeDownBackgroundAlpha(100, p), 1);
}

TEST(SwipeDownMathTest, FarEnoughOrFastEnoughDismissesUnlessFlungBackUp)
{
    VUSwipeDownParameters p;
    p.dismissalDistance = 100;
    p.dismissalVelocity = 500;
    struct Case {
        double offset, velocity;
        bool dismisses;
    };
    const Case cases[] = {
        {99, 0, false}, {100, 0, true}, {300, -499, true}, {300, -500, false}, {10, 500, true}, {10, 499, false}, {-20, 800, true}, {0, 0, false},
    };
    for (const Case &c : cases)
        EXPECT_EQ(VUSwipeDownShouldDismiss(c.offset, c.velocity, p), c.dismisses) << c.offset << " at " << c.velocity;
    // With no velocity threshold, only moving down counts as fast enough.
    p.dismissalVelocity = 0;
    EXPECT_FALSE(VUSwipeDownShouldDismiss(10, 0, p));
    EXPECT_TRUE(VUSwipeDownShouldDismiss(10, 1, p));
}

TEST(SpringDriverTest, RunsFromTheFirstFrameToExactlyOneAndIsPendingWhileItRuns)
{
    ui::DisplayLink::ManualStepping frames(60);
    QWidget view;
    std::vector<double> steps;
    bool finished = false;
    const int pendingBefore = ui::Settle::pendingCount();
    VUSpringDriver::start(&view, VUSpring(0.5, 1), 0, [&](double f) { steps.push_back(f); }, [&](bool done) { finished = done; });
    EXPECT_EQ(ui::Settle::pendingCount(), pendingBefore + 1);
    frames.step(1);
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(steps.front(), 0) << "time counts from the first frame";
    frames.step(29);
    EXPECT_FALSE(finished);
    EXPECT_GT(steps.back(), 0.9);
    EXPECT_LT(steps.back(), 1);
    frames.step(2);
    EXPECT_TRUE(finished);
    EXPECT_EQ(steps.back(), 1);
    EXPECT_EQ(ui::Settle::pendingCount(), pendingBefore);

    bool cancelledFinished = true;
    VUSpringDriver *driver = VUSpringDriver::start(&view, VUSpring(0.5, 1), 0, [](double) {}, [&](bool done) { cancelledFinished = done; });
    frames.step(3);
    driver->cancel();
    EXPECT_FALSE(cancelledFinished);
    EXPECT_EQ(ui::Settle::pendingCount(), pendingBefore);
}

} // namespace
