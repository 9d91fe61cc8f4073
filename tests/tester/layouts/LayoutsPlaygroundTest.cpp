// The layouts playground on screen: what an output view draws and where a tap on it lands, which
// views the playground makes and where, its toolbar, legend and zoom, and the three playground
// screens reached from the root, each starting its playground with its own settings.

#include "QtPrinters.h"

#include "layouts/VUTesterLayoutsPlaygroundViewController.h"
#include "shell/VUTesterRootSettings.h"
#include "shell/VUTesterRootSettingsViewController.h"

#include "layout/VXExploreLayoutGenerator.h"
#include "layout/VXLatticerLayoutGenerator.h"
#include "layout/VXYearsMonthsLayoutGenerator.h"
#include "ui/AlertController.h"
#include "ui/NavigationController.h"
#include "ui/SegmentedControl.h"
#include "ui/TWUISettingsCell.h"
#include "ui/TapGestureRecognizer.h"
#include "ui/Window.h"

#include <QAbstractButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace {

using Settings = VUTesterLayoutsPlaygroundSettings;
using OutputView = VUTesterLayoutGeneratorOutputView;

double area(const QRectF &rect)
{
    return rect.width() * rect.height();
}

// Taps `target` at `at` (its own coordinates), as a finger does.
void tap(QWidget *target, QPointF at)
{
    static double time = 1000;
    time += 10;
    ui::sendTouches(target, ui::TouchPhase::Began, {{0, at}}, time);
    ui::sendTouches(target, ui::TouchPhase::Ended, {{0, at}}, time + 0.05);
}

// One output view in a plain parent, which has the tap recogniser.
struct OutputViewFixture : ::testing::Test {
    Settings settings;
    QWidget parent;
    std::shared_ptr<VUTesterLayoutInputManager> manager;
    OutputView *view = nullptr;
    std::vector<bool> answers;

    void SetUp() override
    {
        settings.setDefaultValues();
        manager = std::make_shared<VUTesterLayoutInputManager>(VUTesterLayoutInput::IndexMap(), &settings);
        parent.resize(400, 400);
        auto *recognizer = new ui::TapGestureRecognizer(&parent);
        QObject::connect(recognizer, &ui::GestureRecognizer::action, [this](ui::GestureRecognizer *r) { answers.push_back(view->handleTap(r)); });
        parent.show();
    }

    void make(VXLayoutGeneratorFactory factory, qint64 items, QRectF frame = QRectF(10, 50, 100, 100))
    {
        view = new OutputView(frame, &parent);
        view->setSettings(&settings);
        view->setLayoutGeneratorFactory(std::move(factory));
        view->setNumberOfItems(items);
        view->setMaximumNumberOfItems(12);
        view->setInputManager(manager);
        view->layoutIfNeeded();
    }
    std::vector<QRectF> frames() const
    {
        std::vector<QRectF> result;
        for (const OutputView::Label *label : view->outputViews())
            result.push_back(label->frame);
        return result;
    }
    // The parent's point over a point of the view's own coordinates.
    QPointF inParent(QPointF point) const { return (point + view->frame().topLeft()) * view->drawingScale(); }
};

const VXLayoutGeneratorFactory kLatticer = VUTesterLatticerPlaygroundSettings::layoutGeneratorFactory();
const VXLayoutGeneratorFactory kExplore = VUTesterExploreLayoutSettings::layoutGeneratorFactory();
const VXLayoutGeneratorFactory kYearsMonths = VUTesterYearsMonthsLayoutsSettings::layoutGeneratorFactory();

} // namespace

TEST_F(OutputViewFixture, KeyItemCountsFromOneAndZeroOrPastTheItemsIsNone)
{
    make(kLatticer, 3);
    ASSERT_EQ(view->outputViews().size(), 3u);
    EXPECT_GT(area(frames()[0]), 3 * area(frames()[1])) << "item 1 is the key item by default";
    EXPECT_EQ(view->outputViews()[1]->text, QStringLiteral("2"));
    EXPECT_EQ(view->outputViews()[1]->backgroundColor, graphics::Color::hsb(1 / 12.0, 1, 1).toQColor());

    for (qint64 none : {0, 4}) {
        settings.setKeyItemIndex(none);
        view->setNeedsLayout();
        view->layoutIfNeeded();
        EXPECT_DOUBLE_EQ(area(frames()[0]), area(frames()[1])) << none;
    }
    settings.setKeyItemIndex(3);
    view->setNeedsLayout();
    view->layoutIfNeeded();
    EXPECT_GT(area(frames()[2]), 3 * area(frames()[0]));
}

TEST_F(OutputViewFixture, ATapOnABoxPassesItsIndexAndATapBetweenBoxesNothingAtAnyScale)
{
    settings.setKeyItemIndex(0);
    make(kLatticer, 4); // 2 x 2 cells of 49 points, 2 apart
    for (double scale : {1.0, 0.5}) {
        view->setDrawingScale(scale);
        answers.clear();
        const std::shared_ptr<const VUTesterLayoutInput> before = manager->layoutInput();
        tap(&parent, inParent(QPointF(50, 20)));
        EXPECT_EQ(answers, std::vector<bool>{false}) << scale;
        EXPECT_EQ(manager->layoutInput(), before) << "between boxes nothing changes";

        tap(&parent, inParent(QPointF(10, 60)));
        EXPECT_EQ(answers, (std::vector<bool>{false, true})) << scale;
        EXPECT_EQ(manager->layoutInput()->inputKinds().keys(), QList<qint64>{2}) << "the third box is item 2";
        manager->handleTapOnItemAtIndex(2); // back to a square, for the next scale
        view->layoutIfNeeded();
    }
}

TEST_F(OutputViewFixture, LabelsAreRecycledAndTheViewRedrawsOnEveryChangeOfItsManagerOnly)
{
    make(kYearsMonths, 12);
    const std::vector<OutputView::Label *> labels = view->outputViews();
    manager->handleTapOnItemAtIndex(3);
    EXPECT_TRUE(view->needsLayout());
    QCoreApplication::processEvents();
    EXPECT_FALSE(view->needsLayout()) << "the pass runs once the event loop turns";
    std::vector<OutputView::Label *> after = view->outputViews();
    EXPECT_TRUE(std::is_permutation(after.begin(), after.end(), labels.begin())) << "the same labels, reused";
    EXPECT_EQ(view->outputViews()[3]->text, QStringLiteral("━4"));

    view->setInputManager(manager);
    EXPECT_FALSE(view->needsLayout()) << "the same manager again changes nothing";
    auto other = std::make_shared<VUTesterLayoutInputManager>(VUTesterLayoutInput::IndexMap(), &settings);
    view->setInputManager(other);
    EXPECT_TRUE(view->needsLayout());
    view->layoutIfNeeded();
    manager->handleTapOnItemAtIndex(0);
    EXPECT_FALSE(view->needsLayout()) << "the old manager is no longer observed";
    EXPECT_EQ(view->outputViews()[3]->text, QStringLiteral("4"));
}

TEST_F(OutputViewFixture, ContentBoundsReachPastTheBoundsForTallContent)
{
    settings.setDefaultInputKind(Settings::VerticalPanos);
    make(kYearsMonths, 12);
    // The key pano stops at the width's height (100); the other eleven, too narrow to fill a row
    // of at most 20, stand in one row of 20 under it.
    EXPECT_EQ(view->contentBounds(), QRectF(0, 0, 100, 122));
    EXPECT_GE(view->geometry().height(), view->contentBounds().height()) << "everything drawn is inside the widget";
}

TEST_F(OutputViewFixture, OverlaysReferenceSizeCornersAndAtMostTenRowsOfBuildingBlocks)
{
    settings.setShowsReferenceSize(true);
    settings.setShowsCorners(true);
    settings.setShowsBuildingBlockSize(true);
    settings.setKeyItemIndex(0);
    make(kLatticer, 3);
    // The reference frame, then marks at three corners: the bottom-right cell is empty.
    ASSERT_EQ(view->boxes().size(), 4u) << "no building blocks: not an explore generator";
    EXPECT_EQ(view->boxes()[0].frame, QRectF(0, 0, 100, 100));
    EXPECT_EQ(view->boxes()[0].borderWidth, 1.0);
    EXPECT_EQ(view->boxes()[1].frame, QRectF(-2.5, -2.5, 5, 5));
    EXPECT_EQ(view->boxes()[2].frame, QRectF(100 - 2.5, -2.5, 5, 5));
    EXPECT_EQ(view->boxes()[3].frame, QRectF(-2.5, 100 - 2.5, 5, 5));

    // Explore, 30 rows of one-block squares and more: 4 columns of 10 rows.
    settings.setShowsReferenceSize(false);
    settings.setShowsCorners(false);
    delete view;
    make(kExplore, 130);
    ASSERT_EQ(view->boxes().size(), 40u);
    const QSizeF block = VXExploreLayoutGenerator({QSizeF(100, 100)}).buildingBlockSize();
    EXPECT_EQ(view->boxes().back().frame, QRectF(3 * (block.width() + 2), 9 * (block.height() + 2), block.width(), block.height()));
    EXPECT_NEAR(view->boxes().back().fillColor.alphaF(), 0.33, 0.5 / 255);
}

TEST_F(OutputViewFixture, AChangeWithAForeignContextEndsTheProcess)
{
    make(kLatticer, 2);
    int foreign;
    EXPECT_DEATH(view->didChange(manager.get(), 1, &foreign), "unknown context");
}

TEST(VUTesterLayoutsPlaygroundViewController, FirstItemCountKeepsTheTotalNearTheMaximum)
{
    using VC = VUTesterLayoutsPlaygroundViewController;
    EXPECT_EQ(VC::firstItemCount(12, 2000), 1);
    EXPECT_EQ(VC::firstItemCount(100, 2000), 78);
    EXPECT_EQ(VC::firstItemCount(100, 200), 98) << "the root of 9600 (97.98) taken up";
    EXPECT_EQ(VC::firstItemCount(10, 50), 1) << "d = 0";
    EXPECT_EQ(VC::firstItemCount(10, 18), 8) << "d = 64, a square: no rounding up";
    EXPECT_EQ(VC::firstItemCount(10, 17), 9) << "d = 66";
    EXPECT_EQ(VC::firstItemCount(3, -1), 4) << "past the maximum: no views";
    EXPECT_EQ(VC::firstItemCount(1, 0), 1);
}

namespace {

struct PlaygroundFixture : ::testing::Test {
    Settings settings;
    ui::Window window;
    ui::NavigationController *navigation = nullptr;
    VUTesterLayoutsPlaygroundViewController *playground = nullptr;

    void SetUp() override { settings.setDefaultValues(); }

    void open(VXLayoutGeneratorFactory factory = kLatticer)
    {
        playground = new VUTesterLayoutsPlaygroundViewController(std::move(factory), {}, &settings);
        navigation = new ui::NavigationController(new ui::ViewController);
        window.setRootViewController(navigation);
        window.resize(390, 700);
        window.show();
        navigation->pushViewController(playground, false);
    }
    // The root view's point over a point of an output view's own coordinates.
    QPointF onScreen(const OutputView *view, QPointF point) const
    {
        return view->mapTo(playground->view(), view->mapFromParent(((point + view->frame().topLeft()) * view->drawingScale()).toPoint()));
    }
};

} // namespace

TEST_F(PlaygroundFixture, ViewsForEachCountFromFirstToMaximumStandInARow)
{
    settings.setReferenceAspectRatio(2.0);
    open();
    QCoreApplication::processEvents();
    const QList<OutputView *> &views = playground->outputViews();
    ASSERT_EQ(views.size(), 12);
    for (qsizetype i = 0; i < views.size(); ++i) {
        EXPECT_EQ(views[i]->frame(), QRectF(10 + 60 * double(i), 50, 50, 25));
        EXPECT_EQ(views[i]->numberOfItems(), i + 1);
        EXPECT_EQ(views[i]->maximumNumberOfItems(), 12);
        EXPECT_EQ(views[i]->inputManager(), playground->inputManager());
        EXPECT_EQ(qsizetype(views[i]->outputViews().size()), i + 1);
    }
    EXPECT_EQ(playground->viewForZooming(playground->scrollView()), views[0]->parentWidget());
    EXPECT_EQ(playground->scrollView()->minimumZoomScale(), 0.1);

    settings.setMaximumNumberOfItems(100);
    settings.setMaximumTotalNumberOfItems(200);
    auto *three = new VUTesterLayoutsPlaygroundViewController(kLatticer, {}, &settings);
    three->view();
    ASSERT_EQ(three->outputViews().size(), 3);
    EXPECT_EQ(three->outputViews()[0]->numberOfItems(), 98);
    delete three;
}

TEST_F(PlaygroundFixture, TheToolbarPicksTheTapBehaviourAndATapChangesTheItemInEveryView)
{
    settings.setDefaultInputKind(Settings::Portraits);
    settings.setKeyItemIndex(0);
    open();
    ASSERT_TRUE(navigation->toolbar()->isVisible());
    ui::SegmentedControl *segments = playground->segmentedControl();
    ASSERT_EQ(segments->numberOfSegments(), 8);
    const QStringList titles{QString(), QStringLiteral("━"), QStringLiteral("⤹"), QStringLiteral("↺"), QStringLiteral("↺━"),
                             QStringLiteral("❤️"), QStringLiteral("💚"), QStringLiteral("💔")};
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(segments->titleForSegmentAtIndex(i), titles[i]);
    EXPECT_EQ(segments->selectedSegmentIndex(), 1) << "at the current behaviour";

    QTest::mouseClick(segments->segmentButton(2), Qt::LeftButton);
    EXPECT_EQ(settings.tapBehavior(), Settings::TapRotate);
    QCoreApplication::processEvents();

    // Item 2 of the fourth view: every view with three items or more rotates it.
    const QList<OutputView *> &views = playground->outputViews();
    tap(playground->view(), onScreen(views[3], views[3]->outputViews()[1]->frame.center()));
    QCoreApplication::processEvents();
    for (qsizetype i = 0; i < views.size(); ++i) {
        const QRectF frame = views[i]->outputViews().size() > 1 ? views[i]->outputViews()[1]->frame : QRectF();
        if (i >= 1) {
            EXPECT_GT(frame.width(), frame.height()) << "view " << i << " shows item 2 as a landscape";
        }
    }
    const std::shared_ptr<const VUTesterLayoutInput> before = playground->inputManager()->layoutInput();
    tap(playground->view(), QPointF(5, 20));
    EXPECT_EQ(playground->inputManager()->layoutInput(), before) << "a tap outside all items changes nothing";
}

TEST_F(PlaygroundFixture, LegendListsTheKindSymbolsWithOneOkAction)
{
    open();
    QToolButton *legend = navigation->toolbar()->findChild<QToolButton *>(QStringLiteral("Legend"));
    ASSERT_TRUE(legend);
    QTest::mouseClick(legend, Qt::LeftButton);
    auto *alert = qobject_cast<ui::AlertController *>(playground->presentedViewController());
    ASSERT_TRUE(alert);
    EXPECT_EQ(alert->title(), QStringLiteral("Legend"));
    EXPECT_EQ(alert->message(), QStringLiteral(" ▯ Portrait \n ▭ Landscape \n ━ Horizontal Pano \n ┃ Vertical Pano "));
    ASSERT_EQ(alert->actions().size(), 1u);
    EXPECT_EQ(alert->actions()[0].title, QStringLiteral("OK"));
}

TEST_F(PlaygroundFixture, AfterOneHopTheStripReachesEverythingDrawnAndZoomingScalesItAsOne)
{
    settings.setDefaultInputKind(Settings::VerticalPanos);
    open(kYearsMonths);
    ui::ScrollView *scrollView = playground->scrollView();
    EXPECT_EQ(scrollView->contentSize(), QSizeF(12 * 60 + 10, 110)) << "placed views first";
    QCoreApplication::processEvents();
    // Eleven items make a row short of filling the width, so it stands at its limit: the lowest.
    const OutputView *last = playground->outputViews().last();
    double bottom = 0;
    for (const OutputView *view : playground->outputViews())
        bottom = std::max(bottom, view->frame().top() + view->contentBounds().bottom());
    EXPECT_EQ(bottom, 50 + playground->outputViews()[10]->contentBounds().bottom());
    EXPECT_EQ(scrollView->contentSize(), QSizeF(last->frame().right(), bottom)) << "everything the views drew";

    scrollView->setZoomScale(0.5);
    EXPECT_EQ(scrollView->contentSize(), QSizeF(last->frame().right(), bottom) * 0.5);
    OutputView *second = playground->outputViews()[1];
    EXPECT_EQ(second->geometry().topLeft(), QPoint(35, 25));
    settings.setTapBehavior(Settings::TapIncreaseWeight);
    tap(playground->view(), onScreen(second, second->outputViews()[1]->frame.center()));
    EXPECT_EQ(playground->inputManager()->layoutInput()->extraWeightForItemAtIndex(1), 1) << "taps land on the zoomed boxes";
}

namespace {

struct RootFixture : ::testing::Test {
    QTemporaryDir dir;
    ui::Window window;
    VUTesterRootSettingsViewController *root = nullptr;

    void SetUp() override
    {
        TWSettings::setArchivePath(dir.filePath(QStringLiteral("settings.json")));
        VUTesterRootSettings::sharedInstance()->restoreDefaultValuesRecursively();
        root = new VUTesterRootSettingsViewController;
        window.setRootViewController(root);
        window.resize(390, 844);
        window.show();
    }
    void TearDown() override { TWSettings::setArchivePath(QString()); }
    void tapRow(const QString &title)
    {
        auto *cell = root->topViewController()->view()->findChild<TWUISettingsCell *>(QStringLiteral("row:") + title);
        ASSERT_TRUE(cell) << title.toStdString();
        QTest::mouseClick(cell, Qt::LeftButton);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !root->isTransitioning(); }, 5000));
    }
};

} // namespace

TEST_F(RootFixture, EachPlaygroundRowOpensItsScreenWhoseFirstRowStartsItWithItsOwnSettings)
{
    VUTesterRootSettings *tree = VUTesterRootSettings::sharedInstance();
    struct Case {
        const char *title;
        Settings *settings;
        std::function<bool(VXLayoutGenerator *)> isItsGenerator;
    } cases[] = {
        {"Latticer Playground", tree->latticerPlaygroundSettings(), [](VXLayoutGenerator *g) { return dynamic_cast<VXLatticerLayoutGenerator *>(g); }},
        {"Explore Layout", tree->exploreLayoutPlaygroundSettings(), [](VXLayoutGenerator *g) { return dynamic_cast<VXExploreLayoutGenerator *>(g); }},
        {"Years & Months Layouts", tree->yearsMonthsLayoutsPlaygroundSettings(),
         [](VXLayoutGenerator *g) { return dynamic_cast<VXYearsMonthsLayoutGenerator *>(g); }},
    };
    tree->exploreLayoutPlaygroundSettings()->setMaximumNumberOfItems(20);
    for (const Case &c : cases) {
        const QString title = QString::fromUtf8(c.title);
        tapRow(title);
        const TWModulePtr module = c.settings->settingsModule();
        EXPECT_EQ(module->title(), title);
        EXPECT_EQ(module->sections()[1].title, QStringLiteral("Playground Settings"));
        EXPECT_EQ(module->sections()[1].rows.size(), 13u);
        tapRow(QStringLiteral("Test ") + title);
        auto *playground = qobject_cast<VUTesterLayoutsPlaygroundViewController *>(root->topViewController());
        ASSERT_TRUE(playground) << c.title;
        EXPECT_EQ(playground->settings(), c.settings);
        EXPECT_EQ(playground->title(), title);
        EXPECT_EQ(playground->outputViews().size(), c.settings->maximumNumberOfItems());
        EXPECT_TRUE(c.isItsGenerator(playground->layoutGeneratorFactory()(QSizeF(50, 50)).get())) << c.title;
        EXPECT_TRUE(root->toolbar()->isVisible());
        root->popToRootViewControllerAnimated(false);
        EXPECT_FALSE(root->toolbar()->isVisible()) << "settings screens show no toolbar";
    }
    EXPECT_EQ(tree->exploreLayoutPlaygroundSettings()->maximumNumberOfItems(), 20);
    EXPECT_EQ(tree->latticerPlaygroundSettings()->maximumNumberOfItems(), 12) << "each playground keeps its own values";
}
