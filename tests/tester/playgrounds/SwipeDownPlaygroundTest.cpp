// The Swipe Down playground driven by a finger under the offscreen platform: a slow drag past the
// distance, or a short fast flick, dismisses the presented photo; a short drag springs back; a
// sideways start is not this gesture's; the background fades with the photo's travel.

#include "PlaygroundRows.h"

#include "playgrounds/swipedown/VUTesterSwipeDownPlaygroundViewController.h"
#include "playgrounds/swipedown/VUTesterSwipeDownSettings.h"

#include <browsing/VUAspectFitImageView.h>
#include <swipedown/VUSwipeDownPhotoViewController.h>

#include "ui/BackgroundColor.h"
#include "ui/GestureRecognizer.h"
#include "ui/Settle.h"

#include <gtest/gtest.h>

namespace {

class SwipeDownPlaygroundTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_settings->setDefaultValues();
        m_playground = qobject_cast<VUTesterSwipeDownPlaygroundViewController *>(
            m_rows.startPlayground(VUTesterSwipeDownSettings::settingsControllerModule(), m_settings));
        ASSERT_NE(m_playground, nullptr);
        ASSERT_TRUE(ui::Settle::waitUntilSettled(std::chrono::seconds(10)));
        ASSERT_NE(m_playground->photo(), nullptr);
    }
    void TearDown() override { m_settings->setDefaultValues(); }

    VUSwipeDownPhotoViewController *present()
    {
        m_playground->presentPhoto();
        EXPECT_TRUE(ui::Settle::waitUntilSettled(std::chrono::seconds(10)));
        return m_playground->presentedPhoto();
    }
    QWidget *stage() const { return m_playground->presentedPhoto()->view(); }
    VUSwipeDownInteraction *interaction() const { return m_playground->presentedPhoto()->interaction(); }

    // A finger down at (200, 300), then `moves` equal moves of `step` points, one a frame.
    void drag(QPointF step, int moves)
    {
        m_at = QPointF(200, 300);
        ui::sendTouches(stage(), ui::TouchPhase::Began, {{0, m_at}}, m_clock);
        for (int i = 0; i < moves; ++i) {
            m_at += step;
            ui::sendTouches(stage(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 1.0 / 60);
        }
    }
    // Rests first when asked, so the release has no speed.
    void release(bool rest)
    {
        if (rest)
            ui::sendTouches(stage(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 0.5);
        ui::sendTouches(stage(), ui::TouchPhase::Ended, {{0, m_at}}, m_clock += 0.001);
    }
    void settleSpring()
    {
        m_rows.frames().step(60);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    VUTesterSwipeDownSettings *m_settings = VUTesterSwipeDownSettings::sharedInstance();
    PlaygroundRows m_rows;
    VUTesterSwipeDownPlaygroundViewController *m_playground = nullptr;
    QPointF m_at;
    double m_clock = 1;
};

TEST_F(SwipeDownPlaygroundTest, SlowDragPastTheDistanceDismissesAndTheBackgroundFollowsTheFinger)
{
    m_settings->setDismissalDistance(120);
    m_settings->setDimmingDistance(200);
    ASSERT_NE(present(), nullptr);
    drag(QPointF(0, 5), 30);
    ASSERT_EQ(interaction()->state(), VUSwipeDownInteraction::State::Dragging);
    const double down = interaction()->offset().y();
    EXPECT_GT(down, 120);
    EXPECT_LT(down, 150);
    // The photo moves with the finger and the black thins in step.
    EXPECT_EQ(m_playground->presentedPhoto()->photoView()->y(), std::lround(down));
    EXPECT_NEAR(interaction()->backgroundAlpha(), 1 - down / 200, 1e-9);
    EXPECT_NEAR(ui::backgroundColor(stage()).alphaF(), 1 - down / 200, 0.01);
    EXPECT_TRUE(m_playground->dragText().startsWith(QStringLiteral("Down %1 pt").arg(std::lround(down))));

    release(true);
    EXPECT_EQ(interaction()->state(), VUSwipeDownInteraction::State::Dismissing);
    EXPECT_NEAR(interaction()->releaseVelocity().y(), 0, 1e-9);
    settleSpring();
    EXPECT_EQ(m_playground->presentedPhoto(), nullptr);
    EXPECT_EQ(m_playground->presentedViewController(), nullptr);
    EXPECT_TRUE(m_playground->releaseText().endsWith(QStringLiteral("dismissed")));
}

TEST_F(SwipeDownPlaygroundTest, ShortDragSpringsBackAndAFastFlickDismisses)
{
    ASSERT_NE(present(), nullptr);
    drag(QPointF(0, 5), 14);
    EXPECT_LT(interaction()->offset().y(), 100);
    release(true);
    EXPECT_EQ(interaction()->state(), VUSwipeDownInteraction::State::Returning);
    settleSpring();
    ASSERT_NE(m_playground->presentedPhoto(), nullptr);
    EXPECT_EQ(interaction()->state(), VUSwipeDownInteraction::State::Idle);
    EXPECT_EQ(interaction()->offset(), QPointF());
    EXPECT_EQ(interaction()->backgroundAlpha(), 1);
    EXPECT_EQ(m_playground->presentedPhoto()->photoView()->pos(), QPoint());
    EXPECT_TRUE(m_playground->releaseText().endsWith(QStringLiteral("kept")));

    // 20 points a frame is 1,200 points a second: far over 500, though only 60 points down.
    drag(QPointF(0, 20), 4);
    EXPECT_LT(interaction()->offset().y(), 100);
    release(false);
    EXPECT_GT(interaction()->releaseVelocity().y(), 500);
    settleSpring();
    EXPECT_EQ(m_playground->presentedPhoto(), nullptr);
}

TEST_F(SwipeDownPlaygroundTest, SidewaysStartIsNotASwipeDownAndUpwardDragsResist)
{
    ASSERT_NE(present(), nullptr);
    drag(QPointF(6, 1), 10);
    EXPECT_EQ(interaction()->state(), VUSwipeDownInteraction::State::Idle);
    EXPECT_EQ(interaction()->offset(), QPointF());
    release(true);

    // Down first, then well above where it started: the photo rises less than the finger.
    drag(QPointF(0, 4), 5);
    for (int i = 0; i < 20; ++i) {
        m_at += QPointF(0, -10);
        ui::sendTouches(stage(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 1.0 / 60);
    }
    const double up = interaction()->offset().y();
    EXPECT_LT(up, 0);
    EXPECT_GT(up, -190 * 0.55);
    EXPECT_EQ(interaction()->backgroundAlpha(), 1);
    release(true);
    settleSpring();
    EXPECT_NE(m_playground->presentedPhoto(), nullptr);

    m_settings->setRubberBanding(false);
    m_playground->presentedPhoto()->dismissViewControllerAnimated(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_NE(present(), nullptr);
    drag(QPointF(0, 4), 5);
    for (int i = 0; i < 20; ++i) {
        m_at += QPointF(0, -10);
        ui::sendTouches(stage(), ui::TouchPhase::Moved, {{0, m_at}}, m_clock += 1.0 / 60);
    }
    EXPECT_EQ(interaction()->offset().y(), 0) << "without rubber banding it stops at rest";
    release(true);
}

} // namespace
