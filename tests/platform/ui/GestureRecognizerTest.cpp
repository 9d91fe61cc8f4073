// Gesture recognisers driven the way users drive them: synthetic touches with chosen times,
// mouse events through Qt's delivery, touch events from a touch screen, and wheels.

#include "ui/PanGestureRecognizer.h"
#include "ui/PinchGestureRecognizer.h"
#include "ui/RotationGestureRecognizer.h"
#include "ui/TapGestureRecognizer.h"

#include <QApplication>
#include <QPointingDevice>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace {

using State = ui::GestureRecognizer::State;

// A parent with one plain child; recognisers go on the parent, input on the child.
struct GestureFixture : ::testing::Test {
    QWidget window;
    QWidget *child = nullptr;

    void SetUp() override
    {
        window.resize(300, 300);
        child = new QWidget(&window);
        child->setGeometry(50, 50, 100, 100);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    // States seen by the recogniser's action, in order.
    static std::shared_ptr<std::vector<State>> record(ui::GestureRecognizer *recognizer)
    {
        auto states = std::make_shared<std::vector<State>>();
        QObject::connect(recognizer, &ui::GestureRecognizer::action, recognizer,
                         [states](ui::GestureRecognizer *r) { states->push_back(r->state()); });
        return states;
    }

    void tap(QWidget *target, QPointF at, double time, int id = 0)
    {
        ui::sendTouches(target, ui::TouchPhase::Began, {{id, at}}, time);
        ui::sendTouches(target, ui::TouchPhase::Ended, {{id, at}}, time + 0.05);
    }
};

} // namespace

TEST_F(GestureFixture, TapOnAChildIsRecognisedByItsParentWithTheLocationInEitherView)
{
    auto *tapRecognizer = new ui::TapGestureRecognizer(&window);
    auto states = record(tapRecognizer);
    QPointF location;
    QObject::connect(tapRecognizer, &ui::GestureRecognizer::action, [&] { location = tapRecognizer->locationInView(); });
    QTest::mouseClick(child, Qt::LeftButton, {}, QPoint(10, 20));
    EXPECT_EQ(*states, std::vector<State>{State::Ended});
    EXPECT_EQ(location, QPointF(60, 70));
    EXPECT_EQ(tapRecognizer->locationInView(child), QPointF(10, 20));
    EXPECT_EQ(tapRecognizer->state(), State::Possible) << "back to possible once the touches lifted";

    // Moving too far, or the wrong number of touches, is not a tap.
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 1.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {30, 10}}}, 1.01);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {30, 10}}}, 1.02);
    tapRecognizer->setNumberOfTouchesRequired(2);
    tap(child, {10, 10}, 2.0);
    EXPECT_EQ(states->size(), 1u);
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}, {1, {40, 10}}}, 3.0);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {10, 10}}, {1, {40, 10}}}, 3.05);
    EXPECT_EQ(states->size(), 2u) << "a two-finger tap";
}

TEST_F(GestureFixture, SingleTapWaitsForTheDoubleTapToFail)
{
    auto *single = new ui::TapGestureRecognizer(&window);
    auto *doubleTap = new ui::TapGestureRecognizer(&window);
    doubleTap->setNumberOfTapsRequired(2);
    doubleTap->setMaximumTapInterval(0.05);
    single->requireGestureRecognizerToFail(doubleTap);
    auto singles = record(single);
    auto doubles = record(doubleTap);

    tap(child, {10, 10}, 0.0);
    tap(child, {12, 10}, 0.07);
    EXPECT_EQ(*doubles, std::vector<State>{State::Ended});
    EXPECT_TRUE(singles->empty()) << "the double tap succeeded, so the single one fails";

    tap(child, {10, 10}, 10.0);
    EXPECT_TRUE(singles->empty()) << "held back while a second tap may still come";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !singles->empty(); }, 2000));
    EXPECT_EQ(*singles, std::vector<State>{State::Ended});
    EXPECT_EQ(doubles->size(), 1u);

    // A second tap that comes too late (by its time stamp) starts over.
    tap(child, {10, 10}, 20.0);
    tap(child, {10, 10}, 20.5);
    EXPECT_EQ(doubles->size(), 1u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return singles->size() == 3; }, 2000)) << "both taps count as single taps";
}

TEST_F(GestureFixture, PanBeginsPastItsMinimumDistanceAndReportsTranslationAndVelocity)
{
    auto *pan = new ui::PanGestureRecognizer(&window);
    auto *tapRecognizer = new ui::TapGestureRecognizer(&window);
    auto states = record(pan);
    auto taps = record(tapRecognizer);
    std::vector<QPointF> translations;
    QObject::connect(pan, &ui::GestureRecognizer::action, [&] { translations.push_back(pan->translation()); });

    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 0.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {15, 10}}}, 0.01);
    EXPECT_EQ(pan->state(), State::Possible) << "5 points is under the minimum distance";
    // 1000 points per second to the right from here on.
    for (int i = 2; i <= 6; ++i)
        ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10.0 + 10 * i, 10}}}, 0.01 * i);
    EXPECT_EQ(pan->state(), State::Changed);
    EXPECT_EQ(pan->translation(), QPointF(40, 0)) << "counted from where the pan began, at x 30";
    EXPECT_NEAR(pan->velocity().x(), 1000, 1e-6);
    EXPECT_EQ(pan->velocity().y(), 0);
    QPointF release;
    QObject::connect(pan, &ui::GestureRecognizer::action, [&] {
        if (pan->state() == State::Ended)
            release = pan->velocity();
    });
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {70, 10}}}, 0.06);
    EXPECT_NEAR(release.x(), 1000, 1e-6) << "lifted while moving: the release velocity";
    EXPECT_EQ(states->front(), State::Began);
    EXPECT_EQ(states->back(), State::Ended);
    EXPECT_EQ(std::count(states->begin(), states->end(), State::Changed), 4);
    EXPECT_EQ(translations.front(), QPointF(0, 0));
    EXPECT_TRUE(taps->empty()) << "the pan failed the tap";

    // Held still before lifting: no velocity left.
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 1.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 40}}}, 1.01);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 60}}}, 1.02);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {10, 60}}}, 1.5);
    EXPECT_EQ(release, QPointF());

    // Lifting before the minimum distance fails the pan, and a tap can win.
    states->clear();
    tap(child, {10, 10}, 3.0);
    EXPECT_TRUE(states->empty());
    EXPECT_EQ(taps->size(), 1u);
}

TEST_F(GestureFixture, SettingTheTranslationRestartsVelocityAndASecondFingerDoesNotJump)
{
    auto *pan = new ui::PanGestureRecognizer(&window);
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 0.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 30}}}, 0.01);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 40}}}, 0.02);
    EXPECT_EQ(pan->translation(), QPointF(0, 10));
    pan->setTranslation(QPointF(5, 5));
    EXPECT_EQ(pan->velocity(), QPointF());
    ui::sendTouches(child, ui::TouchPhase::Began, {{1, {50, 40}}}, 0.03);
    EXPECT_EQ(pan->translation(), QPointF(5, 5)) << "the centroid jumped, the translation did not";
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 50}}, {1, {50, 50}}}, 0.04);
    EXPECT_EQ(pan->translation(), QPointF(5, 15));
    ui::sendTouches(child, ui::TouchPhase::Ended, {{1, {50, 50}}}, 0.05);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {10, 60}}}, 0.06);
    EXPECT_EQ(pan->translation(), QPointF(5, 25));
    EXPECT_EQ(pan->state(), State::Changed);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {10, 60}}}, 0.07);
}

TEST_F(GestureFixture, MouseDragThroughQtIsAPanAndTheEventsAreConsumed)
{
    auto *pan = new ui::PanGestureRecognizer(&window);
    auto states = record(pan);
    QTest::mousePress(child, Qt::LeftButton, {}, QPoint(10, 10));
    QTest::mouseMove(child, QPoint(10, 30), 10);
    QTest::mouseMove(child, QPoint(10, 50), 10);
    QTest::mouseRelease(child, Qt::LeftButton, {}, QPoint(10, 50), 10);
    EXPECT_EQ(*states, (std::vector<State>{State::Began, State::Changed, State::Ended}));
    EXPECT_EQ(pan->state(), State::Possible);
}

TEST_F(GestureFixture, TouchScreenPinchAndPanRecogniseTogetherWhenAllowed)
{
    auto *pan = new ui::PanGestureRecognizer(&window);
    auto *pinch = new ui::PinchGestureRecognizer(&window);
    pan->setMinimumDistance(100); // the pinch moves first
    auto pans = record(pan);
    auto pinches = record(pinch);
    // The test owns the device it makes; it unregisters itself when deleted.
    const std::unique_ptr<QPointingDevice> device(QTest::createTouchDevice());
    QPointingDevice *screen = device.get();

    QTest::touchEvent(&window, screen).press(0, QPoint(100, 100)).press(1, QPoint(200, 100));
    QTest::touchEvent(&window, screen).move(0, QPoint(50, 100)).move(1, QPoint(250, 100));
    EXPECT_EQ(pinch->state(), State::Began);
    EXPECT_DOUBLE_EQ(pinch->scale(), 2.0);
    // Without permission the pan cannot begin while the pinch runs.
    QTest::touchEvent(&window, screen).move(0, QPoint(50, 300)).move(1, QPoint(250, 300));
    EXPECT_TRUE(pans->empty());
    QTest::touchEvent(&window, screen).release(0, QPoint(50, 300)).release(1, QPoint(250, 300));
    EXPECT_EQ(pinches->back(), State::Ended);

    pan->recognizeSimultaneouslyWith(pinch);
    QTest::touchEvent(&window, screen).press(0, QPoint(100, 100)).press(1, QPoint(200, 100));
    QTest::touchEvent(&window, screen).move(0, QPoint(50, 100)).move(1, QPoint(250, 100));
    QTest::touchEvent(&window, screen).move(0, QPoint(50, 250)).move(1, QPoint(250, 250));
    EXPECT_EQ(pan->state(), State::Began);
    EXPECT_EQ(pinch->state(), State::Changed);
    QTest::touchEvent(&window, screen).release(0, QPoint(50, 250)).release(1, QPoint(250, 250));
    EXPECT_EQ(pans->back(), State::Ended);
}

// Two touches turning about their middle: nothing until the turn passes the threshold, then the
// turn since touch-down, clockwise positive, counting on past a half turn; a new rotation takes
// later turns onto it.
TEST_F(GestureFixture, RotationBeginsPastItsThresholdAndCountsWholeTurns)
{
    auto *rotation = new ui::RotationGestureRecognizer(&window);
    auto states = record(rotation);
    const QPointF middle(150, 150);
    const auto touchesAt = [&](double angle) {
        const QPointF arm(80 * std::cos(angle), 80 * std::sin(angle));
        return QList<ui::TouchPoint>{{0, middle - arm}, {1, middle + arm}};
    };
    double time = 1;
    ui::sendTouches(&window, ui::TouchPhase::Began, touchesAt(0), time);
    ui::sendTouches(&window, ui::TouchPhase::Moved, touchesAt(0.03), time += 0.01);
    EXPECT_TRUE(states->empty());
    // Sixty steps of 5 degrees: 300 degrees, clockwise on screen.
    for (int step = 1; step <= 60; ++step)
        ui::sendTouches(&window, ui::TouchPhase::Moved, touchesAt(step * M_PI / 36), time += 0.01);
    EXPECT_EQ(states->front(), State::Began);
    EXPECT_NEAR(rotation->rotation(), 5 * M_PI / 3, 1e-9);
    EXPECT_NEAR(rotation->velocity(), (M_PI / 36) / 0.01, 1e-6);
    rotation->setRotation(0);
    ui::sendTouches(&window, ui::TouchPhase::Moved, touchesAt(59 * M_PI / 36), time += 0.01);
    EXPECT_NEAR(rotation->rotation(), -M_PI / 36, 1e-9);
    ui::sendTouches(&window, ui::TouchPhase::Ended, touchesAt(59 * M_PI / 36).mid(1), time += 0.01);
    EXPECT_EQ(states->back(), State::Ended);
    ui::sendTouches(&window, ui::TouchPhase::Ended, touchesAt(59 * M_PI / 36).mid(0, 1), time += 0.01);
}

TEST_F(GestureFixture, WheelScrollsAreShortPansWithoutVelocityAndCtrlIsLeftForZooming)
{
    auto *pan = new ui::PanGestureRecognizer(&window);
    auto states = record(pan);
    QPointF velocityAtEnd(-1, -1);
    QObject::connect(pan, &ui::GestureRecognizer::action, [&] {
        if (pan->state() == State::Ended)
            velocityAtEnd = pan->velocity();
    });
    // Qt propagates only spontaneous wheel events to parents; this one goes to the window.
    QWheelEvent notch(QPointF(60, 60), window.mapToGlobal(QPointF(60, 60)), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &notch);
    QApplication::sendEvent(&window, &notch);
    EXPECT_EQ(pan->state(), State::Changed);
    EXPECT_EQ(pan->translation(), QPointF(0, -120)) << "two notches of three 20-point lines";
    EXPECT_TRUE(pan->isScrolling());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !states->empty() && states->back() == State::Ended; }, 2000));
    EXPECT_EQ(velocityAtEnd, QPointF());

    EXPECT_FALSE(ui::sendScroll(child, {10, 10}, {0, 30}, ui::ScrollPhase::None, 5.0, Qt::ControlModifier));

    // A touchpad scroll with phases carries its velocity to the end.
    ui::sendScroll(child, {10, 10}, {}, ui::ScrollPhase::Began, 6.0);
    for (int i = 1; i <= 5; ++i)
        ui::sendScroll(child, {10, 10}, {0, 5}, ui::ScrollPhase::Changed, 6.0 + 0.01 * i);
    ui::sendScroll(child, {10, 10}, {}, ui::ScrollPhase::Ended, 6.05);
    EXPECT_EQ(states->back(), State::Ended);
    EXPECT_NEAR(velocityAtEnd.y(), 500, 1e-6);
}

TEST_F(GestureFixture, DeeperRecognisersGoFirstAndAVetoLetsTheOuterOneHaveTheTouches)
{
    auto *outer = new ui::PanGestureRecognizer(&window);
    auto *inner = new ui::PanGestureRecognizer(child);
    auto outers = record(outer);
    auto inners = record(inner);
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 0.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {40, 10}}}, 0.01);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {40, 10}}}, 0.02);
    EXPECT_EQ(inners->size(), 2u);
    EXPECT_TRUE(outers->empty());

    // The inner pan only wants vertical movement.
    inner->setShouldBegin([inner](ui::GestureRecognizer &) { return std::abs(inner->travel().y()) > std::abs(inner->travel().x()); });
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 1.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {40, 10}}}, 1.01);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {40, 10}}}, 1.02);
    EXPECT_EQ(inners->size(), 2u);
    EXPECT_EQ(*outers, (std::vector<State>{State::Began, State::Ended}));

    // Disabling mid-gesture cancels.
    ui::sendTouches(child, ui::TouchPhase::Began, {{0, {10, 10}}}, 2.0);
    ui::sendTouches(child, ui::TouchPhase::Moved, {{0, {40, 10}}}, 2.01);
    outer->setEnabled(false);
    EXPECT_EQ(outers->back(), State::Cancelled);
    ui::sendTouches(child, ui::TouchPhase::Ended, {{0, {40, 10}}}, 2.02);
    EXPECT_EQ(outer->state(), State::Possible);
}
