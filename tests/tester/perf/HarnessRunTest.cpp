// Real harness runs against the baseline environments: stepped frames for exact numbers, and a
// short run on the real frame timer.

#include "QtPrinters.h"

#include "perf/vexo/VUTesterVexoBaselineViewController.h"

#include "perf/harness/VXPerfHarness.h"
#include "ui/DisplayLink.h"
#include "ui/ScrollView.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace {

struct HarnessFixture : ::testing::Test {
    VXPerfHarness *harness = VXPerfHarness::sharedHarness();
    std::optional<VXPerfResult> result;
    QMetaObject::Connection connection;

    void SetUp() override
    {
        VUTesterVexoBaselineViewController::registerWithHarness();
        connection = QObject::connect(harness, &VXPerfHarness::testFinished, [this](const VXPerfResult &r) { result = r; });
    }
    void TearDown() override { QObject::disconnect(connection); }
    QVariantMap definition(const QString &name, const QVariantMap &overrides)
    {
        QVariantMap options = *vexo_testDefinitionNamed(name);
        options.insert(overrides);
        return options;
    }
};

} // namespace

TEST_F(HarnessFixture, ASteppedScrollTestGivesExactFrameStatistics)
{
    ui::DisplayLink::ManualStepping frames(60);
    ASSERT_TRUE(harness->runTest(QStringLiteral("NullScrollView"), definition(QStringLiteral("NullScrollView"), {{"duration", "0.5"}, {"speed", "2000"}})));
    EXPECT_TRUE(harness->isRunning());
    EXPECT_FALSE(harness->runTest(QStringLiteral("NullScrollView"), {})) << "one at a time";
    ui::ScrollView *scrolled = nullptr;
    for (QWidget *widget : QApplication::allWidgets())
        if (auto *scrollView = qobject_cast<ui::ScrollView *>(widget); scrollView && scrollView->isVisible())
            scrolled = scrollView;
    ASSERT_TRUE(scrolled) << "shown in a window of its own";
    EXPECT_EQ(scrolled->window()->size(), VXPerfHarness::HeadlessWindowSize);
    double deepest = 0;
    QObject::connect(scrolled, &ui::ScrollView::scrolled, [&] { deepest = std::max(deepest, scrolled->contentOffset().y()); });
    for (int i = 0; i < 60 && !result; ++i)
        frames.step();
    ASSERT_TRUE(result);
    EXPECT_EQ(result->test, QStringLiteral("NullScrollView"));
    EXPECT_EQ(result->frames, 31);
    EXPECT_NEAR(result->fps, 60, 1e-6);
    EXPECT_DOUBLE_EQ(result->refreshRate, 60);
    EXPECT_NEAR(result->frameTimeMs.p99, 1000.0 / 60, 1e-6);
    EXPECT_EQ(result->framesOverBudget, 0);
    EXPECT_GT(result->peakRssBytes, 0);
    EXPECT_LE(result->peakWidgets, 40) << "a bare scroll view and its window";
    EXPECT_NEAR(deepest, 500, 1e-6) << "a quarter of a second down at 2000 points per second";
    EXPECT_TRUE(result->note.isEmpty());
    EXPECT_FALSE(harness->isRunning());
}

TEST_F(HarnessFixture, ASteppedTransitionTestPushesAndPopsItsNumberOfTimes)
{
    ui::DisplayLink::ManualStepping frames(60);
    ASSERT_TRUE(harness->runTest(QStringLiteral("CrossfadeNavigation"), definition(QStringLiteral("CrossfadeNavigation"), {{"iterations", "2"}})));
    for (int i = 0; i < 400 && !result; ++i) {
        frames.step();
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(result);
    // Two pushes and two pops of a quarter of a second, a frame or so between them.
    EXPECT_GE(result->frames, 60);
    EXPECT_LE(result->frames, 70);
    EXPECT_EQ(result->framesOverBudget, 0);
}

TEST_F(HarnessFixture, AShortRunOnTheRealFrameTimerProducesStatistics)
{
    ASSERT_TRUE(harness->runTest(QStringLiteral("NullCollectionView"), definition(QStringLiteral("NullCollectionView"), {{"duration", "0.6"}})));
    ASSERT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 10000));
    EXPECT_GE(result->frames, 10) << "frames came at the display's pace";
    EXPECT_GT(result->fps, 0);
    EXPECT_LE(result->frameTimeMs.p50, result->frameTimeMs.p90);
    EXPECT_LE(result->frameTimeMs.p90, result->frameTimeMs.p99);
    EXPECT_LE(result->frameTimeMs.p99, result->frameTimeMs.max);
    EXPECT_GT(result->workMs.max, 0);
    EXPECT_LT(result->peakWidgets, 200) << "66,795 cells, of which only those on screen exist";
}
