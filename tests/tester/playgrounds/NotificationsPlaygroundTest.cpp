// The Contextual Notifications playground: what "Post Notification" posts, banners queuing
// behind one another, and the log of how each left.

#include "PlaygroundFixture.h"
#include "QtPrinters.h"

#include "playgrounds/notifications/VUTesterContextualNotificationsPlaygroundViewController.h"

#include <notifications/VUContextualNotificationBanner.h>
#include <notifications/VUContextualNotificationCenter.h>

#include "ui/DisplayLink.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using NotificationsPlayground = PlaygroundFixture;

TEST_F(NotificationsPlayground, PostedNotificationsQueueAndTheLogSaysHowEachLeft)
{
    ui::DisplayLink::ManualStepping stepping(60);
    VUTesterContextualNotificationsSettings settings;
    settings.restoreDefaultValuesRecursively();
    settings.setNumberToPost(2);
    settings.setDismissalDelay(0.5);
    settings.setNumberOfActions(1);
    auto *screen = new VUTesterContextualNotificationsPlaygroundViewController(&settings);
    show(screen);
    screen->tappableRows().first().tap();
    VUContextualNotificationCenter *center = screen->notificationCenter();
    EXPECT_EQ(center->currentIdentifier(), 1);
    EXPECT_EQ(center->queuedCount(), 1);
    VUContextualNotificationBanner *banner = center->banner();
    EXPECT_TRUE(banner->findChild<QLabel *>()->text().startsWith(QStringLiteral("Shared Album (1 of 2)")));
    ASSERT_EQ(banner->actionButtons().size(), 1);

    stepping.step(18);
    QTest::mouseClick(banner->actionButtons().first(), Qt::LeftButton);
    stepping.step(18);
    EXPECT_EQ(center->currentIdentifier(), 2);
    // The second shows for half a second, then leaves by itself.
    stepping.step(18 + 30 + 18);
    EXPECT_EQ(center->currentIdentifier(), 0);
    EXPECT_EQ(screen->log(), (QStringList{QStringLiteral("#1 shown"), QStringLiteral("2 posted, 1 waiting"), QStringLiteral("“View” chosen"),
                                          QStringLiteral("#1 answered"), QStringLiteral("#2 shown"),
                                          QStringLiteral("#2 left after its delay")}));

    settings.setNumberToPost(1);
    settings.setNumberOfActions(3);
    settings.setNotificationTitle(QStringLiteral("Memories"));
    screen->postNotifications();
    ASSERT_EQ(center->banner()->actionButtons().size(), 3);
    EXPECT_EQ(center->banner()->actionButtons().last()->text(), QStringLiteral("Mute"));
    EXPECT_EQ(center->banner()->findChild<QLabel *>()->text(), QStringLiteral("Memories"));
}
