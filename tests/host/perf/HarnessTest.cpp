// The harness's pieces below the environments: statistics, the scroll path, the definitions, and
// frame recording and transitions on stepped frames.

#include "perf/harness/VXPerfFrameRecorder.h"
#include "perf/harness/VXPerfResult.h"
#include "perf/harness/VXPerfScrollDriver.h"
#include "perf/harness/VXPerfTestDefinitions.h"
#include "perf/harness/VXPerfTransitionDriver.h"
#include "perf/harness/VXProcessMemory.h"

#include "ui/NavigationController.h"
#include "ui/ScrollView.h"
#include "ui/Window.h"

#include <QJsonObject>
#include <QSet>
#include <QTest>

#include "PhoneWindow.h"

#include <gtest/gtest.h>

#include <cstring>

#include <sys/mman.h>

TEST(PerfResult, PercentilesByNearestRankAndFramesThatMissedARefresh)
{
    const double interval = 1.0 / 60;
    // 100 frames on the refresh grid, two of them a refresh late and one three.
    std::vector<double> stamps{0};
    for (int i = 1; i < 100; ++i)
        stamps.push_back(stamps.back() + interval * (i == 10 || i == 50 ? 2 : i == 70 ? 4 : 1));
    std::vector<double> work(100);
    for (int i = 0; i < 100; ++i)
        work[size_t(i)] = 0.001 * (i + 1); // 1 to 100 ms
    const VXPerfResult result = VXPerfResult::fromFrames(QStringLiteral("T"), stamps, work, interval);
    EXPECT_EQ(result.frames, 100);
    EXPECT_EQ(result.framesOverBudget, 3);
    EXPECT_NEAR(result.fps, 99 / (interval * 104), 1e-9);
    EXPECT_DOUBLE_EQ(result.refreshRate, 60);
    EXPECT_NEAR(result.frameTimeMs.p50, 1000 * interval, 1e-9);
    EXPECT_NEAR(result.frameTimeMs.p90, 1000 * interval, 1e-9);
    EXPECT_NEAR(result.frameTimeMs.p99, 4000 * interval, 1e-9) << "by nearest rank, the 99th of 99 intervals";
    EXPECT_NEAR(result.frameTimeMs.max, 4000 * interval, 1e-9);
    EXPECT_NEAR(result.workMs.p50, 50, 1e-9);
    EXPECT_NEAR(result.workMs.p90, 90, 1e-9);
    EXPECT_NEAR(result.workMs.p99, 99, 1e-9);
    EXPECT_NEAR(result.workMs.max, 100, 1e-9);

    const QJsonObject json = result.toJson();
    for (const char *key : {"test", "frames", "fps", "refreshRate", "frameTimeMs", "framesOverBudget", "peakRssBytes"})
        EXPECT_TRUE(json.contains(QLatin1String(key))) << key;
    EXPECT_EQ(json.value(QStringLiteral("frameTimeMs")).toObject().keys(), (QStringList{"max", "p50", "p90", "p99"}));
    EXPECT_FALSE(json.contains(QStringLiteral("note")));

    const VXPerfResult empty = VXPerfResult::fromFrames(QStringLiteral("E"), {}, {}, interval);
    EXPECT_EQ(empty.frames, 0);
    EXPECT_EQ(empty.fps, 0);
    EXPECT_EQ(empty.frameTimeMs.max, 0);
}

TEST(PerfScroll, GoesDownAtItsSpeedThenBackTurningAtTheEndsAndEndsWhereItBegan)
{
    const double speed = 1000, duration = 4;
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(0, speed, duration, 5000), 0);
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(1.5, speed, duration, 5000), 1500);
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(2, speed, duration, 5000), 2000) << "the turn";
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(3, speed, duration, 5000), 1000);
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(4, speed, duration, 5000), 0);
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(5, speed, duration, 5000), 0);
    // Short content: it bounces between its ends at the same speed.
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(1.5, speed, duration, 1000), 500);
    EXPECT_EQ(VXPerfScrollDriver::distanceAt(1, speed, duration, 0), 0) << "content that fits does not move";
}

TEST(PerfDefinitions, OneScrollTestPerBaselineAndOneTestPerTransitionEachNamedOnce)
{
    QSet<QString> contents, transitions, names;
    for (const QVariantMap &definition : vexo_testDefinitions()) {
        const QString name = definition.value(VXPerfTestNameKey).toString();
        EXPECT_FALSE(names.contains(name)) << name.toStdString();
        names.insert(name);
        EXPECT_NE(definition.contains(VXPerfContentKey), definition.contains(VXPerfTransitionKey)) << name.toStdString();
        for (auto it = definition.begin(); it != definition.end(); ++it)
            EXPECT_EQ(it.value().typeId(), QMetaType::QString) << "options are strings: " << it.key().toStdString();
        if (definition.contains(VXPerfContentKey)) {
            contents.insert(definition.value(VXPerfContentKey).toString());
        } else {
            transitions.insert(definition.value(VXPerfTransitionKey).toString());
        }
    }
    EXPECT_EQ(contents, (QSet<QString>{"NullScrollView", "NullCollectionView", "VistraKitSampleGrid", "NullTilingController", "CurioStressCollection"}));
    EXPECT_EQ(transitions, (QSet<QString>{"DefaultNavigation", "CrossfadeNavigation"}));
    EXPECT_EQ(vexo_testDefinitionNamed(QStringLiteral("NullTilingController"))->value(VXPerfContentKey), QStringLiteral("NullTilingController"));
    EXPECT_FALSE(vexo_testDefinitionNamed(QStringLiteral("nulltilingcontroller")));
}

TEST(PerfMemory, ThePeakIsTheKernelsAndCanBeStartedAfresh)
{
    const qint64 before = VXPeakResidentBytes();
    ASSERT_GT(before, 1 << 20);
    {
        // Mapped directly: an allocator may keep a freed block resident (a sanitizer's
        // quarantine does).
        constexpr size_t kBytes = 64 << 20;
        void *block = mmap(nullptr, kBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        ASSERT_NE(block, MAP_FAILED);
        std::memset(block, 1, kBytes); // touched, so resident
        EXPECT_GE(VXPeakResidentBytes(), before + (60 << 20));
        munmap(block, kBytes);
    }
    if (VXResetPeakResidentBytes()) {
        EXPECT_LT(VXPeakResidentBytes(), before + (60 << 20)) << "the freed block no longer counts";
    }
}

namespace {

struct SteppedFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    ui::Window window;
    ui::ViewController *root = new ui::ViewController;
    ui::NavigationController *navigation = new ui::NavigationController(root);

    void SetUp() override
    {
        showInPhoneWindow(window, navigation);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    // Frames, and the event loop between them, until `done` or `limit` frames.
    template <typename Done>
    int stepUntil(Done done, int limit = 600)
    {
        int stepped = 0;
        for (; stepped < limit && !done(); ++stepped) {
            frames.step();
            QCoreApplication::processEvents();
        }
        return stepped;
    }
};

} // namespace

TEST_F(SteppedFixture, AScrollRecordsEveryFrameFromItsFirstToItsLast)
{
    auto *scrollView = new ui::ScrollView(root->view());
    scrollView->setGeometry(root->view()->rect());
    scrollView->setContentSize(QSizeF(390, 20000));
    scrollView->show();
    VXPerfFrameRecorder recorder(scrollView);
    bool finished = false;
    VXPerfScrollDriver driver(scrollView, 3000, 1, [&] { finished = true; });
    recorder.start();
    driver.start();
    double deepest = 0;
    QObject::connect(scrollView, &ui::ScrollView::scrolled, [&] { deepest = std::max(deepest, scrollView->contentOffset().y()); });
    stepUntil([&] { return finished; });
    recorder.stop();
    ASSERT_TRUE(finished);
    EXPECT_EQ(recorder.timestamps().size(), 61u) << "a second of frames, both ends included";
    EXPECT_EQ(recorder.work().size(), recorder.timestamps().size());
    EXPECT_NEAR(deepest, 1500, 1e-6) << "half a second down at 3000 points per second";
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 0));
    frames.step(5);
    EXPECT_EQ(recorder.timestamps().size(), 61u) << "a stopped recorder records nothing";

    const VXPerfResult result = VXPerfResult::fromFrames(QStringLiteral("scroll"), recorder.timestamps(), recorder.work(), recorder.refreshInterval());
    EXPECT_NEAR(result.fps, 60, 1e-6);
    EXPECT_EQ(result.framesOverBudget, 0);
    EXPECT_GT(result.workMs.max, 0) << "moving and painting takes some time";
}

TEST_F(SteppedFixture, TransitionsPushAndPopTheSameControllerAndHandTheDelegateBack)
{
    struct Delegate : ui::NavigationControllerDelegate {
        int shown = 0;
        void didShowViewController(ui::NavigationController *, ui::ViewController *, bool) override { ++shown; }
    } delegate;
    navigation->setDelegate(&delegate);
    QPointer<ui::ViewController> destination = new ui::ViewController;
    int pairs = -1;
    auto *driver = new VXPerfTransitionDriver(navigation, destination, nullptr, 3, 1e9, [&](int done) { pairs = done; });
    int pushes = 0;
    QObject::connect(navigation, &ui::NavigationController::didShowViewController, [&](ui::ViewController *shown) {
        pushes += shown == destination;
    });
    driver->start();
    EXPECT_EQ(navigation->delegate(), driver);
    stepUntil([&] { return pairs >= 0; });
    EXPECT_EQ(pairs, 3);
    EXPECT_EQ(pushes, 3);
    ASSERT_TRUE(destination) << "kept between pops";
    EXPECT_EQ(navigation->viewControllers(), QList<ui::ViewController *>{root});
    EXPECT_EQ(navigation->delegate(), &delegate);
    EXPECT_EQ(delegate.shown, 0) << "the driver was the delegate meanwhile";
    delete driver;
    EXPECT_TRUE(destination.isNull()) << "and goes with the driver";
}
