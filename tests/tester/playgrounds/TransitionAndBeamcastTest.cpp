// The transition container's pan state machine and the Beamcast screen simulator, driven by
// synthetic touches as a finger would, frame by frame under the offscreen platform.

#include "QtPrinters.h"

#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulator.h"
#include "playgrounds/oneup/VUTesterOneUpPresentationPlaygroundViewController.h"
#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulatorViewController.h"
#include "playgrounds/transition/VUTesterTransitionNavigationController.h"
#include "playgrounds/transition/VUTesterTransitionPlaygroundScreen.h"
#include "playgrounds/transition/VUTesterTransitionSettings.h"

#include <beamcast/VUBeamcastRootViewController.h>
#include <browsing/VUAssetImageView.h>
#include <browsing/VUOneUpViewController.h>

#include "ui/DisplayLink.h"
#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/GestureRecognizer.h"
#include "ui/Window.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class TransitionContainerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_container = new VUTesterTransitionNavigationController;
        m_container->setPushedViewControllerCreationBlock([this] {
            ++m_created;
            return new VUTesterTransitionPlaygroundScreen(m_created + 1, true);
        });
        m_container->pushViewController(new VUTesterTransitionPlaygroundScreen(1, true), false);
        m_window.setRootViewController(m_container);
        m_window.resize(400, 600);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    QWidget *view() const { return m_container->view(); }

    // Down at x, 12 points to pass the pan's threshold, then `dx` more in ten moves; the last move
    // sets the release velocity: `release` points per second (0: the finger rests before lifting).
    void panBegin(double x)
    {
        const QPointF start(x, 300);
        m_at = start;
        ui::sendTouches(view(), ui::TouchPhase::Began, {{0, m_at}}, m_clock);
        const double step = x < 200 ? 12 : -12;
        m_at += QPointF(step, 0);
        ui::sendTouches(view(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 0.016);
    }
    void panMove(double dx)
    {
        for (int i = 0; i < 10; ++i) {
            m_at += QPointF(dx / 10, 0);
            ui::sendTouches(view(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 0.016);
        }
    }
    void panEnd(double release)
    {
        if (release == 0) {
            m_clock += 0.5;
            ui::sendTouches(view(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock);
        } else {
            // Long enough for the velocity to be the release's alone.
            for (int i = 0; i < 8; ++i) {
                m_at += QPointF(release * 0.016, 0);
                ui::sendTouches(view(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 0.016);
            }
        }
        ui::sendTouches(view(), ui::TouchPhase::Ended, {{0, m_at}}, m_clock += 0.001);
        m_frames.step(60);
        QCoreApplication::processEvents();
    }

    ui::DisplayLink::ManualStepping m_frames{60};
    ui::Window m_window;
    VUTesterTransitionNavigationController *m_container = nullptr;
    int m_created = 0;
    double m_clock = 1;
    QPointF m_at;
};

TEST_F(TransitionContainerTest, LeftHalfPanWithOneScreenStartsNothingThroughAllItsStates)
{
    panBegin(100);
    EXPECT_EQ(m_container->_interactiveTransition(), nullptr);
    panMove(200);
    panEnd(500);
    EXPECT_EQ(m_container->viewControllers().size(), 1);
    EXPECT_EQ(m_created, 0);
    EXPECT_FALSE(m_container->isTransitioning());
}

TEST_F(TransitionContainerTest, RightHalfPanPushesFollowingTheFingerAndFinishesMovingLeft)
{
    panBegin(300);
    ASSERT_NE(m_container->_interactiveTransition(), nullptr);
    EXPECT_EQ(m_created, 1);
    EXPECT_EQ(m_container->lastOperation(), ui::NavigationOperation::Push);
    panMove(-150);
    // Half of the 300 points a push needs, leftwards.
    EXPECT_NEAR(m_container->_interactiveTransition()->percentComplete(), 0.5, 1e-9);
    panMove(-60);
    EXPECT_NEAR(m_container->_interactiveTransition()->percentComplete(), 0.7, 1e-9);
    EXPECT_TRUE(m_container->isTransitioning());
    panEnd(-400);
    EXPECT_EQ(m_container->_interactiveTransition(), nullptr);
    EXPECT_FALSE(m_container->isTransitioning());
    ASSERT_EQ(m_container->viewControllers().size(), 2);
    EXPECT_EQ(static_cast<VUTesterTransitionPlaygroundScreen *>(m_container->topViewController())->number(), 2);

    // At any depth a right-half pan pushes, once per pan; a resting finger at release finishes.
    panBegin(250);
    panMove(-30);
    panEnd(0);
    EXPECT_EQ(m_created, 2);
    EXPECT_EQ(m_container->viewControllers().size(), 3);
}

TEST_F(TransitionContainerTest, PushReleasedMovingRightIsCancelledWhateverTheTravel)
{
    QPointer<ui::ViewController> root = m_container->topViewController();
    panBegin(300);
    panMove(-360);
    EXPECT_NEAR(m_container->_interactiveTransition()->percentComplete(), 1.0, 1e-9);
    panEnd(300);
    EXPECT_FALSE(m_container->isTransitioning());
    ASSERT_EQ(m_container->viewControllers().size(), 1);
    EXPECT_EQ(m_container->topViewController(), root.data());
    EXPECT_EQ(root->appearanceState(), ui::ViewController::AppearanceState::Appeared);
    EXPECT_TRUE(root->view()->isVisible());
}

TEST_F(TransitionContainerTest, PopFinishesOnlyWhenReleasedMovingRight)
{
    panBegin(300);
    panMove(-300);
    panEnd(-300);
    ASSERT_EQ(m_container->viewControllers().size(), 2);
    ui::ViewController *second = m_container->topViewController();

    panBegin(100);
    EXPECT_EQ(m_container->lastOperation(), ui::NavigationOperation::Pop);
    panMove(150);
    EXPECT_NEAR(m_container->_interactiveTransition()->percentComplete(), 0.5, 1e-9);
    panEnd(-200);
    ASSERT_EQ(m_container->viewControllers().size(), 2);
    EXPECT_EQ(m_container->topViewController(), second);

    panBegin(100);
    panMove(40);
    panEnd(200);
    EXPECT_EQ(m_container->viewControllers().size(), 1);
    EXPECT_EQ(m_created, 1);
}

TEST_F(TransitionContainerTest, ScreensShowThePanTravel)
{
    auto *screen = static_cast<VUTesterTransitionPlaygroundScreen *>(m_container->topViewController());
    ASSERT_NE(screen->panDistanceLabel(), nullptr);
    panBegin(100);
    panMove(90);
    EXPECT_EQ(screen->panDistanceLabel()->text(), QStringLiteral("Pan: 90 pt (30 %)"));
    panEnd(0);
}

// Content that would react to a click, were it to get one.
class ButtonProvider : public VHBeamcastControllerContentProvider {
public:
    ui::ViewController *contentViewControllerForBeamcastController(VHBeamcastController *) override
    {
        auto *controller = new ui::ViewController;
        auto *button = new QPushButton(QStringLiteral("Content"), controller->view());
        button->setGeometry(0, 0, 400, 400);
        QObject::connect(button, &QPushButton::clicked, [this] { ++clicks; });
        return controller;
    }
    int clicks = 0;
};

class BeamcastSimulatorTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_window.setRootViewController(new ui::ViewController);
        m_window.resize(400, 700);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }
    void TearDown() override
    {
        m_simulator->hideScreen();
        QCoreApplication::processEvents();
    }
    QWidget *screen() const { return m_simulator->_viewController()->view(); }

    ui::Window m_window;
    VUTesterBeamcastScreenSimulator *m_simulator = VUTesterBeamcastScreenSimulator::sharedSimulator();
};

TEST_F(BeamcastSimulatorTest, ShowingTwiceKeepsTheFirstScreenAndZeroSizeShowsOnlyTheBorder)
{
    auto first = std::make_shared<ButtonProvider>();
    m_simulator->showScreenWithContentSize(QSizeF(160, 90), first);
    ASSERT_TRUE(m_simulator->isScreenVisible());
    VUTesterBeamcastScreenSimulatorViewController *shown = m_simulator->_viewController();
    m_simulator->showScreenWithContentSize(QSizeF(300, 300), std::make_shared<ButtonProvider>());
    EXPECT_EQ(m_simulator->_viewController(), shown);
    EXPECT_EQ(shown->contentProvider(), first);
    EXPECT_EQ(screen()->geometry(), QRect(49, 49, 162, 92));
    EXPECT_EQ(screen()->parentWidget(), &m_window);
    EXPECT_EQ(shown->rootViewController()->view()->geometry(), QRect(1, 1, 160, 90));
    EXPECT_NE(shown->rootViewController()->childViewController(), nullptr);

    m_simulator->hideScreen();
    EXPECT_FALSE(m_simulator->isScreenVisible());
    m_simulator->hideScreen();
    m_simulator->showScreenWithContentSize(QSizeF(0, 0), first);
    EXPECT_EQ(screen()->geometry(), QRect(49, 49, 2, 2));
}

TEST_F(BeamcastSimulatorTest, DraggedScreenStaysWhereLeftAndComesBackHomeAfterHideAndShow)
{
    auto provider = std::make_shared<ButtonProvider>();
    m_simulator->showScreenWithContentSize(QSizeF(160, 90), provider);
    // A finger in the window's coordinates, fed to the screen under it as it moves.
    double clock = 1;
    QPointF finger(100, 80);
    auto send = [&](ui::TouchPhase phase) { ui::sendTouches(screen(), phase, {{0, screen()->mapFrom(&m_window, finger)}}, clock += 0.016); };
    send(ui::TouchPhase::Began);
    for (int i = 0; i < 20; ++i) {
        finger += QPointF(20, 30);
        send(ui::TouchPhase::Moved);
    }
    send(ui::TouchPhase::Ended);
    // The pan began after the first move: the screen followed every move after it, off the window too.
    EXPECT_EQ(screen()->geometry(), QRect(49 + 19 * 20, 49 + 19 * 30, 162, 92));
    EXPECT_EQ(m_simulator->_draggedScreenOriginalFrame(), QRectF(49, 49, 162, 92));

    m_simulator->hideScreen();
    m_simulator->showScreenWithContentSize(QSizeF(160, 90), provider);
    EXPECT_EQ(screen()->geometry(), QRect(49, 49, 162, 92));
}

TEST_F(BeamcastSimulatorTest, DoubleTapHidesAndContentNeverGetsTheTaps)
{
    auto provider = std::make_shared<ButtonProvider>();
    m_simulator->showScreenWithContentSize(QSizeF(160, 90), provider);
    QPointer<QWidget> shown = screen();
    // Clicks on the content land on the screen itself, whose recognisers take them.
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, QPoint(100, 80));
    QTest::mouseDClick(&m_window, Qt::LeftButton, {}, QPoint(100, 80));
    QCoreApplication::processEvents();
    EXPECT_EQ(provider->clicks, 0);

    if (m_simulator->isScreenVisible()) {
        // Synthetic taps, for platforms where the clicks above do not count as a double tap.
        double clock = 10;
        for (int tap = 0; tap < 2; ++tap) {
            ui::sendTouches(screen(), ui::TouchPhase::Began, {{0, QPointF(50, 30)}}, clock += 0.05);
            ui::sendTouches(screen(), ui::TouchPhase::Ended, {{0, QPointF(50, 30)}}, clock += 0.05);
        }
    }
    EXPECT_FALSE(m_simulator->isScreenVisible());
    QCoreApplication::processEvents();
    EXPECT_TRUE(shown.isNull() || !shown->isVisible());
    EXPECT_EQ(provider->clicks, 0);
}

TEST(TransitionSettingsTest, DefaultsAndRowsAndThePlaygroundTheyOpen)
{
    VUTesterTransitionSettings *settings = VUTesterTransitionSettings::sharedInstance();
    settings->setTransitionKind(VUTesterTransitionSettings::TransitionKindStandardSlide);
    settings->setShowsPanDistance(false);
    settings->setDefaultValues();
    EXPECT_EQ(settings->transitionKind(), VUTesterTransitionSettings::TransitionKindInteractiveCrossfade);
    EXPECT_TRUE(settings->showsPanDistance());
    const TWModulePtr module = VUTesterTransitionSettings::settingsControllerModule();
    EXPECT_EQ(module->sections().front().rows.front()->title(), QStringLiteral("Test Transition"));
    EXPECT_EQ(module->sections().back().rows.front()->title(), QStringLiteral("Restore Defaults"));

    // Each kind opens its container, screen 1 first.
    for (qint64 kind : {VUTesterTransitionSettings::TransitionKindInteractiveCrossfade, VUTesterTransitionSettings::TransitionKindStandardSlide}) {
        settings->setTransitionKind(kind);
        ui::Window window;
        auto *root = new ui::ViewController;
        window.setRootViewController(root);
        window.show();
        VUTesterTransitionPlaygroundScreen::presentPlayground(root, *settings);
        auto *container = qobject_cast<ui::NavigationController *>(root->presentedViewController());
        ASSERT_NE(container, nullptr);
        EXPECT_EQ(qobject_cast<VUTesterTransitionNavigationController *>(container) != nullptr,
                  kind == VUTesterTransitionSettings::TransitionKindInteractiveCrossfade);
        EXPECT_EQ(static_cast<VUTesterTransitionPlaygroundScreen *>(container->topViewController())->number(), 1);
    }
    settings->setDefaultValues();
}

// The 1-Up playground opens the browser on the chosen item and sends the item on screen, not the
// first one, to the simulated screen at the chosen width, 16:9.
TEST_F(BeamcastSimulatorTest, OneUpPlaygroundSendsTheCurrentItemToTheSimulatedScreen)
{
    VUTesterOneUpPresentationSettings *settings = VUTesterOneUpPresentationSettings::sharedInstance();
    settings->setDefaultValues();
    EXPECT_EQ(settings->presentationStyle(), VUTesterOneUpPresentationSettings::PresentationStylePush);
    EXPECT_EQ(VUTesterOneUpPresentationSettings::settingsControllerModule()->sections().front().rows.front()->title(),
              QStringLiteral("Test 1-Up Presentation"));
    settings->setInitialItem(1);
    settings->setBeamcastScreenWidth(320);

    auto *playground = new VUTesterOneUpPresentationPlaygroundViewController(*settings);
    // A second window: the simulated screen still goes over the first one the application made.
    auto *navigation = new ui::NavigationController(playground);
    ui::Window window;
    window.setRootViewController(navigation);
    window.resize(390, 700);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_NE(playground->oneUpViewController(), nullptr);
    EXPECT_EQ(playground->oneUpViewController()->currentIndexPath(), ui::IndexPath::forItem(1, 0));

    const QList<ui::TappableRow> rows = playground->tappableRows();
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_EQ(rows.front().title, QStringLiteral("Show on Simulated Screen"));
    rows.front().tap();
    ASSERT_TRUE(m_simulator->isScreenVisible());
    EXPECT_EQ(screen()->geometry(), QRect(49, 49, 322, 182));
    EXPECT_EQ(screen()->window(), &m_window);
    ASSERT_TRUE(ui::Settle::waitUntilSettled(std::chrono::seconds(10)));
    auto *shown = screen()->findChild<VUAssetImageView *>(QStringLiteral("beamcastAsset"));
    ASSERT_NE(shown, nullptr);
    ASSERT_NE(shown->image(), nullptr);
    settings->setDefaultValues();
}

} // namespace
