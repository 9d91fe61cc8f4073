// Long activities as the host shows them: an activity ends once whatever its work reports late,
// the card says where it stands, and the controller's tray keeps cards while activities run,
// lets them go after they end, and keeps failures until the user has pressed OK.

#include "QtPrinters.h"

#include <activity/VUActivity.h>
#include <activity/VUActivityController.h>
#include <activity/VUActivityProgressView.h>

#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

TEST(VUActivity, EndsOnceAndLateReportsChangeNothing)
{
    VUActivity activity(QStringLiteral("Export"));
    EXPECT_TRUE(activity.isRunning());
    EXPECT_TRUE(activity.isIndeterminate());
    QSignalSpy ended(&activity, &VUActivity::ended);
    activity.setProgress(1.7);
    EXPECT_FALSE(activity.isIndeterminate());
    EXPECT_DOUBLE_EQ(activity.progress(), 1.0);
    activity.setProgress(0.3);

    activity.cancel();
    EXPECT_EQ(activity.state(), VUActivity::State::Cancelled);
    EXPECT_TRUE(activity.cancellationFlag()->load());
    // The work had not noticed yet.
    activity.setProgress(0.5);
    activity.finish();
    activity.fail(QStringLiteral("late"));
    EXPECT_EQ(activity.state(), VUActivity::State::Cancelled);
    EXPECT_DOUBLE_EQ(activity.progress(), 0.3);
    EXPECT_TRUE(activity.errorDescription().isEmpty());
    ASSERT_EQ(ended.count(), 1);
    EXPECT_EQ(ended.at(0).at(0).value<VUActivity::State>(), VUActivity::State::Cancelled);

    VUActivity firm(QStringLiteral("Save"));
    firm.setCancellable(false);
    firm.cancel();
    EXPECT_TRUE(firm.isRunning());
    EXPECT_FALSE(firm.cancellationFlag()->load());
    firm.finish();
    EXPECT_EQ(firm.state(), VUActivity::State::Finished);
    EXPECT_DOUBLE_EQ(firm.progress(), 1.0);
}

TEST(VUActivityProgressView, TheCardSaysWhereTheActivityStands)
{
    VUActivity activity(QStringLiteral("Import"));
    VUActivityProgressView card(&activity);
    // Indeterminate: Qt's busy bar, with no percentage.
    EXPECT_EQ(card.progressBar()->maximum(), 0);
    EXPECT_TRUE(card.detailText().isEmpty());
    EXPECT_EQ(card.button()->text(), QStringLiteral("Cancel"));
    EXPECT_FALSE(card.button()->isHidden());

    activity.setProgress(0.42);
    EXPECT_EQ(card.detailText(), QStringLiteral("42 %"));
    EXPECT_EQ(card.progressBar()->value(), 420);
    activity.setMessage(QStringLiteral("42 of 100"));
    EXPECT_EQ(card.detailText(), QStringLiteral("42 of 100"));

    activity.setCancellable(false);
    EXPECT_TRUE(card.button()->isHidden());
    activity.fail(QStringLiteral("The disk is full."));
    EXPECT_EQ(card.detailText(), QStringLiteral("The disk is full."));
    EXPECT_EQ(card.button()->text(), QStringLiteral("OK"));
    EXPECT_FALSE(card.button()->isHidden());
}

TEST(VUActivityController, TheTrayKeepsRunningAndFailedActivitiesAndLetsTheOthersGo)
{
    QWidget host;
    host.resize(390, 600);
    host.show();
    VUActivityController controller(&host);
    controller.setEndedCardLifetime(0);
    EXPECT_FALSE(controller.tray()->isVisible());
    QSignalSpy ended(&controller, &VUActivityController::activityEnded);

    VUActivity *first = controller.beginActivity(QStringLiteral("First"));
    VUActivity *second = controller.beginActivity(QStringLiteral("Second"));
    VUActivity *third = controller.beginActivity(QStringLiteral("Third"));
    EXPECT_EQ(controller.activities(), (QList<VUActivity *>{first, second, third}));
    EXPECT_TRUE(controller.tray()->isVisible());
    // Along the bottom of the host, inside its margins.
    EXPECT_EQ(controller.tray()->geometry().bottom() + 1, 600 - 12);
    EXPECT_EQ(controller.tray()->width(), 390 - 24);
    const int threeHigh = controller.tray()->height();

    // The user cancels the first from its card; the second finishes; both leave.
    QTest::mouseClick(controller.progressViewForActivity(first)->button(), Qt::LeftButton);
    EXPECT_EQ(first->state(), VUActivity::State::Cancelled);
    second->finish();
    EXPECT_EQ(controller.activities(), QList<VUActivity *>{third});
    EXPECT_LT(controller.tray()->height(), threeHigh);
    ASSERT_EQ(ended.count(), 2);

    // A failure stays until OK.
    third->fail(QStringLiteral("No room."));
    EXPECT_EQ(controller.activities(), QList<VUActivity *>{third});
    QTest::mouseClick(controller.progressViewForActivity(third)->button(), Qt::LeftButton);
    EXPECT_TRUE(controller.activities().isEmpty());
    EXPECT_FALSE(controller.tray()->isVisible());

    // With a lifetime, a finished card lingers, then goes.
    controller.setEndedCardLifetime(0.05);
    VUActivity *lingering = controller.beginActivity(QStringLiteral("Lingering"));
    lingering->finish();
    EXPECT_EQ(controller.activities().size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return controller.activities().isEmpty(); }, 2000));

    // The tray follows the host's size.
    controller.beginActivity(QStringLiteral("Wide"));
    host.resize(500, 700);
    EXPECT_EQ(controller.tray()->width(), 500 - 24);
    EXPECT_EQ(controller.tray()->geometry().bottom() + 1, 700 - 12);
}
