// In-app notification banners over a host view, stepped frame by frame at 60 Hz: the queue in
// posting order, each banner's own delay (paused while touched), swipes that dismiss and those
// that settle back, actions, and slides counted as pending work.

#include "QtPrinters.h"

#include <notifications/VUContextualNotificationBanner.h>
#include <notifications/VUContextualNotificationCenter.h>

#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"
#include "ui/Settle.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using Center = VUContextualNotificationCenter;

namespace {

VUContextualNotification notification(const QString &title, double delay, QList<VUContextualNotificationAction> actions = {})
{
    return {title, QStringLiteral("A message long enough to wrap onto a second line of the banner."), std::move(actions), delay};
}

class NotificationsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        host.resize(390, 844);
        host.show();
    }
    // Frames of the display; a slide takes 18.
    void step(int frames) { stepping.step(frames); }
    int bannerY() const { return center.banner() ? center.banner()->y() : -1000; }
    // A drag on the banner by `dy` points over `seconds`, in ten moves, then the finger lifts.
    void drag(double dy, double seconds)
    {
        QWidget *banner = center.banner();
        const QPointF from(100, 30);
        ui::sendTouches(banner, ui::TouchPhase::Began, {{0, from}}, clock);
        for (int i = 1; i <= 10; ++i)
            ui::sendTouches(banner, ui::TouchPhase::Moved, {{0, from + QPointF(0, dy * i / 10)}}, clock += seconds / 10);
        ui::sendTouches(banner, ui::TouchPhase::Ended, {{0, from + QPointF(0, dy)}}, clock);
    }

    ui::DisplayLink::ManualStepping stepping{60};
    QWidget host;
    Center center{&host};
    QSignalSpy dismissed{&center, &Center::didDismiss};
    double clock = 100;
};

} // namespace

TEST_F(NotificationsTest, BannersShowOneAtATimeInOrderEachForItsOwnDelay)
{
    QSignalSpy shown(&center, &Center::didShow);
    EXPECT_EQ(center.post(notification(QStringLiteral("A"), 1.0)), 1);
    EXPECT_EQ(center.post(notification(QStringLiteral("B"), 0.5)), 2);
    EXPECT_EQ(center.post(notification(QStringLiteral("C"), 0)), 3);
    EXPECT_EQ(center.currentIdentifier(), 1);
    EXPECT_EQ(center.queuedCount(), 2);
    EXPECT_LT(bannerY(), -center.banner()->height());
    EXPECT_EQ(center.banner()->width(), 390 - 16);
    EXPECT_GT(ui::Settle::pendingCount(), 0);

    step(18);
    EXPECT_EQ(bannerY(), 8);
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
    // Its second on screen, then its slide out.
    step(59);
    EXPECT_EQ(dismissed.count(), 0);
    EXPECT_EQ(bannerY(), 8);
    step(1 + 18);
    ASSERT_EQ(dismissed.count(), 1);
    EXPECT_EQ(dismissed.at(0).at(0).toInt(), 1);
    EXPECT_EQ(dismissed.at(0).at(1).value<Center::DismissalReason>(), Center::DismissalReason::Timeout);
    EXPECT_EQ(center.currentIdentifier(), 2);

    step(18 + 30 + 18);
    EXPECT_EQ(dismissed.count(), 2);
    EXPECT_EQ(center.currentIdentifier(), 3);
    // C stays until dismissed.
    step(18 + 600);
    EXPECT_EQ(center.currentIdentifier(), 3);
    EXPECT_EQ(bannerY(), 8);
    EXPECT_EQ(shown.count(), 3);

    center.dismissCurrent();
    step(18);
    EXPECT_EQ(dismissed.last().at(1).value<Center::DismissalReason>(), Center::DismissalReason::Programmatic);
    EXPECT_EQ(center.currentIdentifier(), 0);
    EXPECT_EQ(center.banner(), nullptr);
}

TEST_F(NotificationsTest, SwipesUpDismissWhenFarOrFastAndOtherwiseTheBannerSettlesBack)
{
    center.post(notification(QStringLiteral("A"), 2.0));
    step(18 + 30);
    const double remaining = center.remainingTime();
    EXPECT_NEAR(remaining, 1.5, 1e-9);

    // A short slow drag: the banner follows, its time stands still, and it settles back.
    QWidget *banner = center.banner();
    ui::sendTouches(banner, ui::TouchPhase::Began, {{0, QPointF(100, 30)}}, clock);
    ui::sendTouches(banner, ui::TouchPhase::Moved, {{0, QPointF(100, 10)}}, clock += 0.5);
    ui::sendTouches(banner, ui::TouchPhase::Moved, {{0, QPointF(100, 0)}}, clock += 0.5);
    EXPECT_TRUE(center.isDragging());
    EXPECT_LT(bannerY(), 8);
    step(120);
    EXPECT_NEAR(center.remainingTime(), remaining, 1e-9);
    ui::sendTouches(banner, ui::TouchPhase::Ended, {{0, QPointF(100, 0)}}, clock += 0.5);
    step(18);
    EXPECT_EQ(bannerY(), 8);
    EXPECT_EQ(dismissed.count(), 0);

    // Pulled down (by 50 points once the pan has begun), it moves a fifth of the way and comes back.
    ui::sendTouches(banner, ui::TouchPhase::Began, {{0, QPointF(100, 30)}}, clock += 1);
    ui::sendTouches(banner, ui::TouchPhase::Moved, {{0, QPointF(100, 50)}}, clock += 0.5);
    ui::sendTouches(banner, ui::TouchPhase::Moved, {{0, QPointF(100, 100)}}, clock += 0.5);
    EXPECT_EQ(bannerY(), 8 + 50 / 5);
    ui::sendTouches(banner, ui::TouchPhase::Ended, {{0, QPointF(100, 90)}}, clock += 0.5);
    step(18);
    EXPECT_EQ(bannerY(), 8);

    // Far enough, however slowly.
    drag(-0.6 * banner->height(), 2.0);
    step(18);
    ASSERT_EQ(dismissed.count(), 1);
    EXPECT_EQ(dismissed.at(0).at(1).value<Center::DismissalReason>(), Center::DismissalReason::Swipe);

    // Or fast enough, however short.
    center.post(notification(QStringLiteral("B"), 2.0));
    step(18);
    drag(-20, 0.02);
    step(18);
    ASSERT_EQ(dismissed.count(), 2);
    EXPECT_EQ(dismissed.at(1).at(1).value<Center::DismissalReason>(), Center::DismissalReason::Swipe);
}

TEST_F(NotificationsTest, AnActionRunsItsHandlerOnceAndDismissesTheBanner)
{
    int viewed = 0, muted = 0;
    center.post(notification(QStringLiteral("A"), 0, {{QStringLiteral("View"), [&] { ++viewed; }}, {QStringLiteral("Mute"), [&] { ++muted; }}}));
    center.post(notification(QStringLiteral("B"), 0));
    center.post(notification(QStringLiteral("C"), 0));
    step(18);
    const QList<QPushButton *> buttons = center.banner()->actionButtons();
    ASSERT_EQ(buttons.size(), 2);
    EXPECT_EQ(buttons[1]->text(), QStringLiteral("Mute"));
    QTest::mouseClick(buttons[1], Qt::LeftButton);
    // Tapped again while sliding away: nothing more.
    QTest::mouseClick(buttons[1], Qt::LeftButton);
    step(18);
    EXPECT_EQ(muted, 1);
    EXPECT_EQ(viewed, 0);
    ASSERT_EQ(dismissed.count(), 1);
    EXPECT_EQ(dismissed.at(0).at(1).value<Center::DismissalReason>(), Center::DismissalReason::Action);
    EXPECT_EQ(dismissed.at(0).at(2).toInt(), 1);

    // The next is already on its way; those after it can be dropped.
    EXPECT_EQ(center.currentIdentifier(), 2);
    center.removeAllQueued();
    center.dismissCurrent();
    step(18);
    EXPECT_EQ(center.currentIdentifier(), 0);
    EXPECT_EQ(center.queuedCount(), 0);
}
