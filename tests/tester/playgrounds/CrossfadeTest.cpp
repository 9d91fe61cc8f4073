// The two crossfades are one: the host's fades the screen on top over the other along its curve,
// and the baseline environments' is the host's at the container's own duration and easing.

#include "PhoneWindow.h"

#include "perf/vexo/VUTesterCrossfadeNavigationTransition.h"

#include <transitions/VUCrossfadeAnimatedTransitioning.h>

#include "ui/DisplayLink.h"
#include "ui/NavigationController.h"

#include <QGraphicsOpacityEffect>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class FixedDelegate : public ui::NavigationControllerDelegate {
public:
    explicit FixedDelegate(std::shared_ptr<ui::AnimatedTransitioning> transition) : m_transition(std::move(transition)) {}
    std::shared_ptr<ui::AnimatedTransitioning> animationControllerForOperation(ui::NavigationController *, ui::NavigationOperation,
                                                                               ui::ViewController *, ui::ViewController *) override
    {
        return m_transition;
    }

private:
    std::shared_ptr<ui::AnimatedTransitioning> m_transition;
};

// The opacity of the pushed screen a quarter of the way through a push, and the frames the push
// took.
std::pair<double, int> quarterwayOpacity(std::shared_ptr<ui::AnimatedTransitioning> transition, double duration)
{
    // At 80 frames a second both durations are whole quarters of frames.
    ui::DisplayLink::ManualStepping frames(80);
    FixedDelegate delegate(std::move(transition));
    ui::Window window;
    auto *navigation = new ui::NavigationController(new ui::ViewController);
    navigation->setDelegate(&delegate);
    showInPhoneWindow(window, navigation);
    auto *pushed = new ui::ViewController;
    navigation->pushViewController(pushed, true);
    const int quarter = int(std::lround(duration * 80 / 4));
    frames.step(quarter);
    auto *fade = qobject_cast<QGraphicsOpacityEffect *>(pushed->view()->graphicsEffect());
    const double opacity = fade ? fade->opacity() : -1;
    int steps = 0;
    while (navigation->isTransitioning() && steps < 1000) {
        frames.step(1);
        ++steps;
    }
    EXPECT_EQ(pushed->view()->graphicsEffect(), nullptr) << "the fade is removed at the end";
    return {opacity, quarter + steps};
}

TEST(CrossfadeTest, TheHostCrossfadeFollowsItsCurveAndTheBaselinesIsTheContainersEasing)
{
    const auto [linear, linearFrames] = quarterwayOpacity(std::make_shared<VUCrossfadeAnimatedTransitioning>(), 0.3);
    EXPECT_NEAR(linear, 0.25, 1e-9);
    EXPECT_NEAR(linearFrames, 0.3 * 80, 1);

    const double containers = ui::ViewController::transitionDuration() / 1000.0;
    const auto baseline = std::make_shared<VUTesterCrossfadeNavigationTransition>();
    EXPECT_NE(std::dynamic_pointer_cast<VUCrossfadeAnimatedTransitioning>(baseline), nullptr);
    const auto [eased, easedFrames] = quarterwayOpacity(baseline, containers);
    // In and out quadratically: a quarter of the way is an eighth of the fade.
    EXPECT_NEAR(eased, 0.125, 1e-9);
    EXPECT_NEAR(easedFrames, containers * 80, 1);
}

} // namespace
