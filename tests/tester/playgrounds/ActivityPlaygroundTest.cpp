// The Activity Controller playground: activities of the chosen length finish, fail at the chosen
// point or stop when cancelled, each reported as the work goes and logged when it ends.

#include "PlaygroundFixture.h"
#include "QtPrinters.h"

#include "playgrounds/activity/VUTesterActivityPlaygroundViewController.h"

#include <activity/VUActivityController.h>
#include <activity/VUActivityProgressView.h>

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ActivityPlayground : public PlaygroundFixture {
protected:
    void SetUp() override
    {
        PlaygroundFixture::SetUp();
        settings.restoreDefaultValuesRecursively();
        settings.setDuration(0.2);
        settings.setNumberOfSteps(4);
        screen = new VUTesterActivityPlaygroundViewController(&settings);
        show(screen);
        screen->activityController()->setEndedCardLifetime(0);
    }
    // Starts an activity from the screen's row and records every progress it reports.
    VUActivity *start(QList<double> *progress)
    {
        const QList<ui::TappableRow> rows = screen->tappableRows();
        EXPECT_EQ(rows.size(), 1);
        rows.first().tap();
        VUActivity *activity = screen->activityController()->activities().last();
        QObject::connect(activity, &VUActivity::changed, activity, [activity, progress] {
            if (!activity->isIndeterminate() && (progress->isEmpty() || progress->last() != activity->progress()))
                progress->append(activity->progress());
        });
        return activity;
    }

    VUTesterActivitySettings settings;
    VUTesterActivityPlaygroundViewController *screen = nullptr;
};

} // namespace

TEST_F(ActivityPlayground, AnActivityFinishesInItsStepsAndIsLogged)
{
    QList<double> progress;
    QPointer<VUActivity> activity = start(&progress);
    EXPECT_EQ(activity->title(), QStringLiteral("Exporting 10 Items"));
    EXPECT_EQ(activity->message(), QStringLiteral("Step 0 of 4"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return screen->log().size() == 2; }, 5000));
    EXPECT_EQ(progress, (QList<double>{0.25, 0.5, 0.75, 1.0}));
    EXPECT_TRUE(screen->log()[1].startsWith(QStringLiteral("Exporting 10 Items: finished after "))) << screen->log()[1].toStdString();
    EXPECT_TRUE(screen->activityController()->activities().isEmpty());
}

TEST_F(ActivityPlayground, AnActivityFailsAtTheFirstStepThatReachesTheFailurePoint)
{
    settings.setFails(true);
    settings.setFailurePoint(0.4);
    QList<double> progress;
    QPointer<VUActivity> activity = start(&progress);
    ASSERT_TRUE(QTest::qWaitFor([&] { return activity->state() == VUActivity::State::Failed; }, 5000));
    EXPECT_EQ(progress, (QList<double>{0.25, 0.5}));
    EXPECT_EQ(activity->errorDescription(), QStringLiteral("Failed at step 2 of 4 (50 %), as the settings ask."));
    // The failure's card waits for OK.
    QTest::qWait(50);
    ASSERT_EQ(screen->activityController()->activities(), QList<VUActivity *>{activity.data()});
    QTest::mouseClick(screen->activityController()->progressViewForActivity(activity)->button(), Qt::LeftButton);
    EXPECT_TRUE(screen->activityController()->activities().isEmpty());
    EXPECT_EQ(screen->log().last(), QStringLiteral("Exporting 10 Items: Failed at step 2 of 4 (50 %), as the settings ask."));
}

TEST_F(ActivityPlayground, CancellingStopsTheWorkAndAnIndeterminateOneNeverSaysHowFar)
{
    settings.setDuration(30);
    settings.setDeterminate(false);
    settings.setActivityTitle(QStringLiteral("Long"));
    QList<double> progress;
    QPointer<VUActivity> activity = start(&progress);
    EXPECT_TRUE(activity->isIndeterminate());
    EXPECT_EQ(activity->message(), QStringLiteral("Working…"));
    QTest::mouseClick(screen->activityController()->progressViewForActivity(activity)->button(), Qt::LeftButton);
    EXPECT_EQ(screen->log().last(), QStringLiteral("Long: cancelled at 0 %"));
    QTest::qWait(100);
    EXPECT_TRUE(progress.isEmpty());
    EXPECT_TRUE(screen->activityController()->activities().isEmpty());

    // Not cancellable: no button, and the activity runs to its end.
    settings.setDuration(0.1);
    settings.setCancellable(false);
    activity = start(&progress);
    EXPECT_TRUE(screen->activityController()->progressViewForActivity(activity)->button()->isHidden());
    ASSERT_TRUE(QTest::qWaitFor([&] { return screen->log().last().startsWith(QStringLiteral("Long: finished")); }, 5000));
}
