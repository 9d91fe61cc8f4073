// The baseline environments: each scene's view and delay, the transitions, aborts on unknown
// names, and the Vexo screen's rows.

#include "PhoneWindow.h"
#include "QtPrinters.h"

#include "perf/VUTesterVexoSettings.h"
#include "perf/vexo/VUTesterCrossfadeNavigationTransition.h"
#include "perf/vexo/VUTesterVexoBaselineViewController.h"
#include "perf/vexo/VUTesterVistraKitSampleAssetGridViewController.h"

#include "layouts/VUTesterTilingControllerNullGridViewController.h"

#include "perf/gadgets/VXGadgetUIViewController.h"
#include "perf/harness/VXPerfHarness.h"
#include "settings/VXSettings.h"
#include "ui/AlertController.h"
#include "ui/BackgroundColor.h"
#include "ui/BarButtonItem.h"
#include "ui/CollectionViewFlowLayout.h"
#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/Window.h"

#include <QTest>

#include <optional>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// A baseline at the root of a navigation controller in a phone-sized window.
struct Environment {
    ui::Window window;
    VUTesterVexoBaselineViewController *baseline = new VUTesterVexoBaselineViewController;
    ui::NavigationController *navigation = new ui::NavigationController(baseline);

    Environment()
    {
        showInPhoneWindow(window, navigation);
    }
};

QVariantMap content(const char *name)
{
    return {{QStringLiteral("content"), QString::fromLatin1(name)}};
}

} // namespace

TEST(VexoBaseline, TheNullScrollViewIsHandedOverAtOnceWithIndicatorsThatStay)
{
    Environment environment;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&environment.window));
    ui::ScrollView *handed = nullptr;
    environment.baseline->prepareForScrollTestWithName(QStringLiteral("ignored"), content("NullScrollView"),
                                                       [&](ui::ScrollView *view) { handed = view; });
    ASSERT_TRUE(handed) << "before the call returns";
    QWidget *root = environment.baseline->view();
    EXPECT_EQ(handed->parentWidget(), root);
    EXPECT_EQ(handed->geometry(), root->rect());
    EXPECT_EQ(handed->contentSize(), QSizeF(root->width(), 10000));
    EXPECT_EQ(ui::backgroundColor(handed), QColor(Qt::white));
    EXPECT_EQ(environment.baseline->title(), QStringLiteral("Vexo Baseline Environment"));
    EXPECT_EQ(ui::backgroundColor(root), QColor(Qt::white));
    ASSERT_TRUE(handed->verticalScrollIndicator()->isVisible()) << "shown as soon as it had a parent";
    handed->setContentOffset(QPointF(0, 2000));
    QTest::qWait(700); // longer than a stock scroll view keeps its indicators after a scroll
    EXPECT_TRUE(handed->verticalScrollIndicator()->isVisible());
}

TEST(VexoBaseline, TheNullCollectionViewIs365SectionsOf183HuesInTheGridsMetricsAfterAFifthOfASecond)
{
    Environment environment;
    ui::CollectionView *handed = nullptr;
    environment.baseline->prepareForScrollTestWithName(QString(), content("NullCollectionView"),
                                                       [&](ui::ScrollView *view) { handed = qobject_cast<ui::CollectionView *>(view); });
    EXPECT_EQ(environment.baseline->itemsPerSection(), 183);
    QTest::qWait(100);
    EXPECT_FALSE(handed) << "not before 0.2 s";
    ASSERT_TRUE(QTest::qWaitFor([&] { return handed != nullptr; }, 2000));
    handed->layoutIfNeeded();
    EXPECT_EQ(handed->numberOfSections(), 365);
    qint64 cells = 0;
    for (qint64 section = 0; section < handed->numberOfSections(); ++section)
        cells += handed->numberOfItemsInSection(section);
    EXPECT_EQ(cells, 66795);
    EXPECT_LT(handed->visibleCells().size(), 100) << "only what is on screen has a cell";

    ui::CollectionViewCell *first = handed->cellForItemAtIndexPath(ui::IndexPath::forItem(0, 0));
    ASSERT_TRUE(first);
    EXPECT_EQ(ui::backgroundColor(first->contentView()).rgba(), qRgba(255, 0, 0, 255)) << "pure red";
    ui::CollectionViewCell *fifth = handed->cellForItemAtIndexPath(ui::IndexPath::forItem(4, 0));
    ASSERT_TRUE(fifth);
    EXPECT_NEAR(ui::backgroundColor(fifth->contentView()).hueF(), 4.0 / 183, 1e-3);

    auto *layout = static_cast<ui::CollectionViewFlowLayout *>(handed->collectionViewLayout());
    // The phone's grid at 390 points: four columns of 96 with 2 between, no section inset but the 50.
    EXPECT_EQ(layout->itemSize(), QSizeF(96, 96));
    EXPECT_EQ(layout->minimumInteritemSpacing(), 2);
    EXPECT_EQ(layout->minimumLineSpacing(), 2);
    EXPECT_EQ(layout->sectionInset(), (ui::EdgeInsets{0, 0, 50, 0}));
    EXPECT_TRUE(handed->isPrefetchingEnabled());
}

TEST(VexoBaseline, PushedEnvironmentsAreHandedOverTwoSecondsAfterThePushWithTheirScrollingView)
{
    Environment grid, tiling, gadgets;
    struct Case {
        Environment &environment;
        const char *content;
        ui::ScrollView *handed = nullptr;
    } cases[] = {{grid, "VistraKitSampleGrid"}, {tiling, "NullTilingController"}, {gadgets, "CurioStressCollection"}};
    for (Case &c : cases)
        c.environment.baseline->prepareForScrollTestWithName(QString(), content(c.content), [&c](ui::ScrollView *view) { c.handed = view; });
    for (Case &c : cases)
        EXPECT_EQ(c.environment.navigation->viewControllers().size(), 2) << c.content << " is pushed at once";
    QTest::qWait(1500);
    for (Case &c : cases)
        EXPECT_FALSE(c.handed) << c.content << " waits the full two seconds though the push is long over";
    ASSERT_TRUE(QTest::qWaitFor([&] { return cases[0].handed && cases[1].handed && cases[2].handed; }, 3000));
    ui::ViewController *top[] = {grid.navigation->topViewController(), tiling.navigation->topViewController(),
                                 gadgets.navigation->topViewController()};
    ASSERT_TRUE(qobject_cast<VUTesterVistraKitSampleAssetGridViewController *>(top[0]));
    EXPECT_EQ(cases[0].handed, static_cast<VUTesterVistraKitSampleAssetGridViewController *>(top[0])->collectionView());
    ASSERT_TRUE(qobject_cast<VUTesterTilingControllerNullGridViewController *>(top[1]));
    EXPECT_EQ(cases[1].handed, static_cast<VUTesterTilingControllerNullGridViewController *>(top[1])->scrollView());
    ASSERT_TRUE(qobject_cast<VXGadgetUIViewController *>(top[2]));
    EXPECT_EQ(cases[2].handed, static_cast<VXGadgetUIViewController *>(top[2])->collectionView());
}

TEST(VexoBaseline, ADelayedHandlerDoesNotRunForAnEnvironmentThatWentAway)
{
    bool handed = false;
    {
        Environment environment;
        environment.baseline->prepareForScrollTestWithName(QString(), content("NullCollectionView"), [&](ui::ScrollView *) { handed = true; });
    }
    QTest::qWait(400);
    EXPECT_FALSE(handed);
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
}

TEST(VexoBaseline, TransitionsGoFromRedToGreenWithTheNamedTransition)
{
    Environment environment;
    for (const char *name : {"DefaultNavigation", "CrossfadeNavigation"}) {
        ui::ViewController *destination = nullptr;
        std::shared_ptr<ui::AnimatedTransitioning> transition;
        bool called = false;
        environment.baseline->prepareForTransitionTestWithName(QStringLiteral("ignored"), {{QStringLiteral("transition"), QString::fromLatin1(name)}},
                                                               [&](ui::ViewController *controller, std::shared_ptr<ui::AnimatedTransitioning> t) {
                                                                   called = true;
                                                                   destination = controller;
                                                                   transition = std::move(t);
                                                               });
        ASSERT_TRUE(called) << name << " at once";
        EXPECT_EQ(ui::backgroundColor(environment.baseline->view()), QColor(Qt::red));
        ASSERT_TRUE(destination);
        EXPECT_EQ(ui::backgroundColor(destination->view()), QColor(Qt::green));
        if (QByteArray(name) == "DefaultNavigation")
            EXPECT_EQ(transition, nullptr);
        else
            EXPECT_TRUE(std::dynamic_pointer_cast<VUTesterCrossfadeNavigationTransition>(transition));
    }
}

TEST(VexoBaselineDeathTest, UnknownOrMissingNamesEndTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto scroll = [](const QVariantMap &options) {
        VUTesterVexoBaselineViewController baseline;
        baseline.prepareForScrollTestWithName(QStringLiteral("NullScrollView"), options, [](ui::ScrollView *) {});
    };
    const auto transition = [](const QVariantMap &options) {
        VUTesterVexoBaselineViewController baseline;
        baseline.prepareForTransitionTestWithName(QStringLiteral("DefaultNavigation"), options, [](ui::ViewController *, auto) {});
    };
    EXPECT_DEATH(scroll(content("NullScrollview")), "");
    EXPECT_DEATH(scroll({}), "") << "the test name is not a fallback";
    EXPECT_DEATH(transition({{QStringLiteral("transition"), QStringLiteral("Crossfade")}}), "");
    EXPECT_DEATH(transition(content("NullScrollView")), "");
}

TEST(VexoBaseline, DoneDismissesThePresentedEnvironment)
{
    ui::Window window;
    auto *root = new ui::ViewController;
    showInPhoneWindow(window, root);
    auto *baseline = new VUTesterVexoBaselineViewController;
    root->presentViewController(new ui::NavigationController(baseline), false);
    const auto &left = baseline->navigationItem()->leftBarButtonItems();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left[0]->systemItem(), ui::BarButtonItem::SystemItem::Done);
    left[0]->trigger();
    EXPECT_TRUE(root->lastTransitionWasAnimated());
    ASSERT_TRUE(QTest::qWaitFor([&] { return root->presentedViewController() == nullptr; }, 3000));
}

namespace {

struct VexoScreenFixture : ::testing::Test {
    ui::Window window;
    ui::ViewController *screen = new ui::ViewController;
    ui::NavigationController *navigation = new ui::NavigationController(screen);
    TWModulePtr module = VUTesterVexoSettings::settingsControllerModule();

    void SetUp() override
    {
        showInPhoneWindow(window, navigation);
    }
    void tap(const QString &title)
    {
        TWRow *row = module->rowWithTitle(title);
        ASSERT_TRUE(row) << title.toStdString();
        ASSERT_EQ(row->kind(), TWRow::Kind::DrillDown);
        ASSERT_TRUE(row->rowAction());
        row->rowAction()->perform({VUTesterVexoSettings::sharedInstance(), screen, row});
    }
};

QStringList titles(const TWSection &section)
{
    QStringList list;
    for (const TWRowPtr &row : section.rows)
        list << row->title();
    return list;
}

} // namespace

TEST_F(VexoScreenFixture, TestsAreListedAsDefinedAndSortedEachShownByItsCondition)
{
    const auto &sections = module->sections();
    ASSERT_EQ(sections.size(), 5u);
    EXPECT_EQ(sections[0].title, QStringLiteral("Baselines"));
    EXPECT_EQ(titles(sections[0]), (QStringList{"Null Collection View", "Null Tiling Controller"}));
    EXPECT_EQ(titles(sections[1]), QStringList{QStringLiteral("Sort Alphabetically")});
    EXPECT_EQ(titles(sections[2]), vexo_testNames());
    EXPECT_EQ(sections[2].condition.format, QStringLiteral("sortAlphabetically == 0"));
    QStringList sorted = vexo_testNames();
    std::sort(sorted.begin(), sorted.end(), [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) < 0; });
    EXPECT_EQ(titles(sections[3]), sorted);
    EXPECT_NE(titles(sections[3]), titles(sections[2])) << "the application's order is not already sorted";
    EXPECT_EQ(sections[3].condition.format, QStringLiteral("sortAlphabetically == 1"));

    VUTesterVexoSettings *settings = VUTesterVexoSettings::sharedInstance();
    EXPECT_TRUE(sections[2].isVisible(settings));
    EXPECT_FALSE(sections[3].isVisible(settings));
    settings->setSortAlphabetically(true);
    EXPECT_FALSE(sections[2].isVisible(settings));
    EXPECT_TRUE(sections[3].isVisible(settings));
    settings->setDefaultValues();
}

TEST_F(VexoScreenFixture, ABaselineRowPushesABaselineWithoutItsDoneButtonUnlessTheTreeIsBeingIndexed)
{
    {
        VXSettingsIndexingScope indexing;
        tap(QStringLiteral("Null Collection View"));
    }
    EXPECT_EQ(navigation->viewControllers().size(), 1) << "nothing opens while indexing";

    tap(QStringLiteral("Null Collection View"));
    auto *baseline = qobject_cast<VUTesterVexoBaselineViewController *>(navigation->topViewController());
    ASSERT_TRUE(baseline);
    EXPECT_TRUE(baseline->navigationItem()->leftBarButtonItems().isEmpty());
    EXPECT_EQ(baseline->itemsPerSection(), 183) << "its scene is prepared";
    ASSERT_TRUE(ui::Settle::waitUntilSettled(5s));

    tap(QStringLiteral("Null Tiling Controller"));
    ASSERT_TRUE(ui::Settle::waitUntilSettled(5s));
    EXPECT_TRUE(qobject_cast<VUTesterTilingControllerNullGridViewController *>(navigation->topViewController()))
        << "the baseline pushed the tiling grid over itself";
}

TEST_F(VexoScreenFixture, ATestRowRunsItsDefinitionThroughTheHarnessOverTheWindow)
{
    VXPerfHarness *harness = VXPerfHarness::sharedHarness();
    std::optional<VXPerfResult> result;
    QObject::connect(harness, &VXPerfHarness::testFinished, &window, [&](const VXPerfResult &r) { result = r; });
    tap(QStringLiteral("NullScrollView"));
    ASSERT_TRUE(harness->isRunning());
    // Over the window's root controller.
    ASSERT_TRUE(QTest::qWaitFor([&] { return navigation->presentedViewController() != nullptr; }, 3000));
    auto *presented = qobject_cast<ui::NavigationController *>(navigation->presentedViewController());
    ASSERT_TRUE(presented);
    auto *baseline = qobject_cast<VUTesterVexoBaselineViewController *>(presented->topViewController());
    ASSERT_TRUE(baseline);
    QTest::qWait(300);
    // Closed by hand before its four seconds: what was measured so far is the result.
    baseline->navigationItem()->leftBarButtonItems()[0]->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return result.has_value(); }, 3000));
    EXPECT_EQ(result->test, QStringLiteral("NullScrollView"));
    EXPECT_GT(result->frames, 5);
    EXPECT_FALSE(result->note.isEmpty());
    EXPECT_FALSE(harness->isRunning());
    ASSERT_TRUE(QTest::qWaitFor([&] { return qobject_cast<ui::AlertController *>(navigation->presentedViewController()) != nullptr; }, 3000))
        << "the result is shown";
}
