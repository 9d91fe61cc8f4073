// Navigation transitions on the frame timer: a delegate's own animation, the container's slide,
// interruptions, and frame observers around each frame.

#include "PhoneWindow.h"
#include "QtPrinters.h"

#include "ui/AnimatedTransitioning.h"
#include "ui/DisplayLink.h"
#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/Window.h"

#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace {

// Records what it was handed, and the progress each frame gave its animation.
class RecordingAnimator : public ui::AnimatedTransitioning {
public:
    double transitionDuration(const ui::TransitionContext &) const override { return duration; }
    void animateTransition(ui::TransitionContext &context) override
    {
        container = context.containerView();
        from = context.viewForKey(ui::TransitionContext::Key::From);
        to = context.viewForKey(ui::TransitionContext::Key::To);
        operation = context.operation();
        fromOnTop = container->children().indexOf(from) > container->children().indexOf(to);
        context.addAnimations([this](double progress) { progresses.push_back(progress); }, QEasingCurve::Linear);
        context.addCompletion([this, &context] {
            ++completions;
            if (completes)
                context.completeTransition();
        });
    }
    void animationEnded() override { ++ended; }

    double duration = 0.1;
    bool completes = true;
    QPointer<QWidget> container;
    QWidget *from = nullptr;
    QWidget *to = nullptr;
    ui::NavigationOperation operation = ui::NavigationOperation::None;
    bool fromOnTop = false;
    std::vector<double> progresses;
    int completions = 0;
    int ended = 0;
};

class AnimatorDelegate : public ui::NavigationControllerDelegate {
public:
    std::shared_ptr<ui::AnimatedTransitioning> animationControllerForOperation(ui::NavigationController *, ui::NavigationOperation operation,
                                                                               ui::ViewController *, ui::ViewController *) override
    {
        asked.push_back(operation);
        return animator;
    }
    std::shared_ptr<RecordingAnimator> animator = std::make_shared<RecordingAnimator>();
    std::vector<ui::NavigationOperation> asked;
};

struct TransitionFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    AnimatorDelegate delegate;
    ui::Window window;
    ui::ViewController *root = new ui::ViewController;
    ui::NavigationController *navigation = new ui::NavigationController(root);

    void SetUp() override
    {
        root->setTitle(QStringLiteral("Root"));
        navigation->setDelegate(&delegate);
        showInPhoneWindow(window, navigation, QSize(390, 600));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    ui::ViewController *next()
    {
        auto *controller = new ui::ViewController;
        controller->setTitle(QStringLiteral("Next"));
        return controller;
    }
};

} // namespace

TEST_F(TransitionFixture, ADelegatesAnimationGetsBothViewsAndRunsOverItsDurationFrameByFrame)
{
    ui::ViewController *pushed = next();
    navigation->pushViewController(pushed, true);
    RecordingAnimator &animator = *delegate.animator;
    ASSERT_EQ(delegate.asked, std::vector<ui::NavigationOperation>{ui::NavigationOperation::Push});
    ASSERT_TRUE(animator.container);
    EXPECT_EQ(animator.from, root->view());
    EXPECT_EQ(animator.to, pushed->view());
    EXPECT_EQ(animator.from->parentWidget(), animator.container.data());
    EXPECT_EQ(animator.to->geometry(), animator.container->rect()) << "both views fill the container";
    EXPECT_FALSE(animator.fromOnTop) << "a push brings the incoming screen in on top";
    EXPECT_EQ(animator.progresses, std::vector<double>{0}) << "the animation starts from its beginning before any frame";
    EXPECT_TRUE(navigation->isTransitioning());
    EXPECT_EQ(ui::Settle::pendingDescriptions(), QStringList{QStringLiteral("push of \"Next\"")});

    frames.step(3);
    ASSERT_EQ(animator.progresses.size(), 4u);
    EXPECT_NEAR(animator.progresses[1], 1.0 / 6, 1e-9) << "a sixtieth of a second of a tenth";
    EXPECT_NEAR(animator.progresses[3], 0.5, 1e-9);
    EXPECT_EQ(animator.completions, 0);
    frames.step(3);
    EXPECT_EQ(animator.progresses.back(), 1.0);
    EXPECT_EQ(animator.completions, 1);
    EXPECT_EQ(animator.ended, 1);
    EXPECT_FALSE(navigation->isTransitioning());
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
    EXPECT_EQ(pushed->appearanceState(), ui::ViewController::AppearanceState::Appeared);
    EXPECT_EQ(root->appearanceState(), ui::ViewController::AppearanceState::Disappeared);
    EXPECT_TRUE(animator.container.isNull()) << "the container goes once the views are back in the pages";
    EXPECT_NE(pushed->view()->parentWidget(), nullptr);
    EXPECT_TRUE(pushed->view()->isVisible());
    EXPECT_FALSE(root->view()->isVisible());

    frames.step(5);
    EXPECT_EQ(animator.progresses.size(), 7u) << "nothing runs after the end";
}

TEST_F(TransitionFixture, APopPutsTheOutgoingScreenOnTopAndAnInterruptionJumpsToTheEnd)
{
    ui::ViewController *pushed = next();
    navigation->pushViewController(pushed, false);
    RecordingAnimator &animator = *delegate.animator;
    EXPECT_TRUE(delegate.asked.empty()) << "an unanimated push asks for no animation";

    navigation->popViewControllerAnimated(true);
    EXPECT_EQ(animator.operation, ui::NavigationOperation::Pop);
    EXPECT_TRUE(animator.fromOnTop);
    frames.step(2);
    EXPECT_LT(animator.progresses.back(), 1);

    // A push while the pop runs: the pop's animations finish at once and the pop completes.
    ui::ViewController *another = next();
    navigation->pushViewController(another, false);
    EXPECT_EQ(animator.progresses.back(), 1.0);
    EXPECT_EQ(animator.ended, 1);
    EXPECT_EQ(navigation->viewControllers(), (QList<ui::ViewController *>{root, another}));
    EXPECT_FALSE(navigation->isTransitioning());
}

TEST_F(TransitionFixture, AnAnimationThatNeverCompletesIsCompletedWhenInterrupted)
{
    delegate.animator->completes = false;
    navigation->pushViewController(next(), true);
    frames.step(20);
    EXPECT_EQ(delegate.animator->completions, 1);
    EXPECT_TRUE(navigation->isTransitioning()) << "only completeTransition ends a transition";
    navigation->popViewControllerAnimated(false);
    EXPECT_EQ(delegate.animator->ended, 1);
    EXPECT_EQ(navigation->viewControllers(), QList<ui::ViewController *>{root});
}

TEST_F(TransitionFixture, WithoutADelegateAnswerTheContainerSlidesOnTheSameFrames)
{
    delegate.animator = nullptr;
    ui::ViewController *pushed = next();
    navigation->pushViewController(pushed, true);
    QWidget *incoming = pushed->view();
    const int width = incoming->parentWidget()->width();
    EXPECT_EQ(incoming->x(), width) << "the incoming screen starts just off the right edge";
    frames.step(6);
    EXPECT_GT(incoming->x(), 0);
    EXPECT_LT(incoming->x(), width);
    EXPECT_LT(root->view()->x(), 0) << "the outgoing screen drifts left";
    frames.step(int(ui::ViewController::transitionDuration() * 60 / 1000) + 1);
    EXPECT_FALSE(navigation->isTransitioning());
    EXPECT_EQ(incoming->pos(), QPoint(0, 0));
}

TEST(DisplayLinkFrameObservers, HearOfEachFrameAroundItsLinksAndNotOnceRemoved)
{
    struct Observer : ui::DisplayLink::FrameObserver {
        std::vector<QString> *log;
        void frameWillBegin(double timestamp, double) override { log->push_back(QStringLiteral("begin %1").arg(timestamp, 0, 'f', 3)); }
        void frameDidEnd(double timestamp, double) override { log->push_back(QStringLiteral("end %1").arg(timestamp, 0, 'f', 3)); }
    };
    std::vector<QString> log;
    Observer observer;
    observer.log = &log;
    ui::DisplayLink::ManualStepping frames(50);
    ui::DisplayLink link([&](ui::DisplayLink &l) { log.push_back(QStringLiteral("link %1").arg(l.timestamp(), 0, 'f', 3)); });
    link.schedule();
    ui::DisplayLink::addFrameObserver(&observer);
    ui::DisplayLink::addFrameObserver(&observer);
    const QString at = QString::number(frames.time() + 0.02, 'f', 3);
    frames.step();
    EXPECT_EQ(log, (std::vector<QString>{QStringLiteral("begin ") + at, QStringLiteral("link ") + at, QStringLiteral("end ") + at}))
        << "added twice, told once";
    ui::DisplayLink::removeFrameObserver(&observer);
    log.clear();
    frames.step();
    EXPECT_EQ(log.size(), 1u);
}
