// The tiling view and the one-up browser over the module's synthetic session, as an engineer uses
// them: real scrolls and taps under the offscreen platform, frame by frame.

#include "QtPrinters.h"

#include "layouts/VUTesterAsset.h"
#include "layouts/VUTesterBrowsingSession.h"
#include "layouts/VUTesterDataSourceManager.h"
#include "layouts/VUTesterTilingDataSource.h"
#include "layouts/VUTesterTilingViewSettings.h"
#include "media/VUTesterMediaProvider.h"
#include "playgrounds/tiling/VUTesterTilingViewTransitionPlaygroundViewController.h"

#include <browsing/VUAspectFitImageView.h>
#include <browsing/VUOneUpPresentationHelper.h>
#include <browsing/VUOneUpViewController.h>
#include <browsing/VUTilingView.h>

#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"
#include "ui/NavigationController.h"
#include "ui/Settle.h"
#include "ui/Window.h"

#include <QTest>

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace std::chrono_literals;

namespace {

// The grid worked out by hand: 4 columns of 96 points, 2 apart, 20 below each section.
struct ExpectedGrid {
    std::vector<double> tops;
    std::vector<qint64> counts;

    explicit ExpectedGrid(qint64 sections)
    {
        double top = 0;
        for (qint64 s = 0; s < sections; ++s) {
            const qint64 count = qint64(VUTesterTilingDataSource::numberOfRandomItemsInSection(quint64(s)));
            tops.push_back(top);
            counts.push_back(count);
            top += ((count + 3) / 4) * 98.0 - 2 + 20;
        }
    }
    QRectF frame(qint64 section, qint64 item) const { return QRectF((item % 4) * 98.0, tops[size_t(section)] + (item / 4) * 98.0, 96, 96); }
    std::set<ui::IndexPath> itemsIn(const QRectF &rect) const
    {
        std::set<ui::IndexPath> items;
        for (size_t s = 0; s < tops.size(); ++s)
            for (qint64 i = 0; i < counts[s]; ++i)
                if (frame(qint64(s), i).intersects(rect))
                    items.insert(ui::IndexPath::forItem(i, qint64(s)));
        return items;
    }
};

std::set<ui::IndexPath> visibleItems(ui::CollectionView *view)
{
    const QList<ui::IndexPath> list = view->indexPathsForVisibleItems();
    return {list.begin(), list.end()};
}

const graphics::ImagePtr &imageOf(ui::CollectionViewCell *cell)
{
    return cell->findChild<VUAspectFitImageView *>()->image();
}

// A drag by touch from `from` by `by`, in ten moves 10 ms apart, released at speed.
void drag(QWidget *view, QPointF from, QPointF by, double *clock)
{
    ui::sendTouches(view, ui::TouchPhase::Began, {{0, from}}, *clock);
    for (int i = 1; i <= 10; ++i)
        ui::sendTouches(view, ui::TouchPhase::Moved, {{0, from + by * (i / 10.0)}}, *clock += 0.01);
    ui::sendTouches(view, ui::TouchPhase::Ended, {{0, from + by}}, *clock);
}

void tap(QWidget *view, QPointF at, double *clock)
{
    ui::sendTouches(view, ui::TouchPhase::Began, {{0, at}}, *clock += 0.5);
    ui::sendTouches(view, ui::TouchPhase::Ended, {{0, at}}, *clock += 0.05);
}

struct TilingFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    double clock = 100;

    void SetUp() override { VUTesterTilingViewSettings::sharedInstance()->setNumberOfSections(3141); }
    void TearDown() override { VUTesterTilingViewSettings::sharedInstance()->setDefaultValues(); }

    void stepUntilStill(ui::ScrollView *view)
    {
        for (int frame = 0; frame < 3000 && view->isDecelerating(); ++frame)
            frames.step();
    }
};

} // namespace

TEST_F(TilingFixture, ARealScrollOfThreeThousandSectionsKeepsOnlyTheCellsOnScreen)
{
    QWidget window;
    window.resize(390, 844);
    auto *tiling = new VUTilingView(VUTesterBrowsingSession::newBrowsingSession(), &window);
    tiling->setGeometry(window.rect());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ui::CollectionView *view = tiling->collectionView();
    view->layoutIfNeeded();
    const ExpectedGrid grid(3141);
    EXPECT_EQ(tiling->numberOfColumns(), 4);
    EXPECT_EQ(view->contentSize().height(), grid.tops.back() + ((grid.counts.back() + 3) / 4) * 98.0 - 2 + 20);

    size_t mostVisible = 0;
    const auto checkScreen = [&](const char *when) {
        const std::set<ui::IndexPath> expected = grid.itemsIn(view->bounds());
        mostVisible = std::max(mostVisible, expected.size());
        ASSERT_EQ(visibleItems(view), expected) << when;
        for (const ui::IndexPath &path : expected) {
            ui::CollectionViewCell *cell = view->cellForItemAtIndexPath(path);
            EXPECT_EQ(QRectF(cell->geometry()), grid.frame(path.section(), path.item())) << when;
            // The cell shows its own asset: a placeholder of that asset's orientation.
            const VUTesterAsset asset(QStringLiteral("%1:%2").arg(path.section()).arg(path.item()));
            ASSERT_TRUE(imageOf(cell)) << when;
            EXPECT_EQ(imageOf(cell)->pixels().size(), QSize(int(asset.pixelWidth()), int(asset.pixelHeight()))) << when;
        }
        // Cells that scrolled out wait for reuse; nothing else off screen has a widget.
        EXPECT_LE(view->findChildren<ui::CollectionViewCell *>().size(), qsizetype(mostVisible) + 4) << when;
    };
    checkScreen("at the top");

    // A fling by touch, checked on every frame of its deceleration.
    drag(view, QPointF(200, 700), QPointF(0, -400), &clock);
    int checked = 0;
    while (view->isDecelerating() && checked < 2000) {
        frames.step();
        ++checked;
        checkScreen("while decelerating");
        if (::testing::Test::HasFatalFailure())
            return;
    }
    EXPECT_GT(view->contentOffset().y(), 1500);

    view->setContentOffset(QPointF(0, grid.tops[3000] + 30));
    checkScreen("far down");
    EXPECT_EQ(ui::Settle::pendingCount(), 0) << "the placeholders arrive at once";
}

TEST_F(TilingFixture, ATappedItemOpensTheOneUpBrowserThatPagesAcrossSectionsAndZooms)
{
    VUTesterTilingViewSettings::sharedInstance()->setNumberOfSections(31);
    ui::Window window;
    auto *playground = new VUTesterTilingViewTransitionPlaygroundViewController;
    auto *navigation = new ui::NavigationController(playground);
    window.setRootViewController(navigation);
    window.resize(390, 844);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ASSERT_TRUE(ui::Settle::waitUntilSettled(5s));
    ui::CollectionView *grid = playground->tilingView()->collectionView();
    grid->layoutIfNeeded();

    // The last item of section 0.
    ui::CollectionViewCell *cell = grid->cellForItemAtIndexPath(ui::IndexPath::forItem(2, 0));
    ASSERT_TRUE(cell);
    tap(grid, cell->mapTo(grid, QPointF(40, 40)), &clock);
    frames.step(30); // the push
    ASSERT_TRUE(ui::Settle::waitUntilSettled(5s));
    auto *oneUp = qobject_cast<VUOneUpViewController *>(navigation->topViewController());
    ASSERT_TRUE(oneUp) << "the browser was pushed";
    EXPECT_EQ(oneUp->currentIndexPath(), ui::IndexPath::forItem(2, 0));
    EXPECT_EQ(oneUp->title(), QStringLiteral("3 of 380"));
    EXPECT_NE(oneUp->browsingSession()->dataSourceManager()->assetsDataSource()->identifier(),
              playground->tilingView()->browsingSession()->dataSourceManager()->assetsDataSource()->identifier())
        << "over a session of its own";
    ui::CollectionView *pages = oneUp->collectionView();
    EXPECT_EQ(pages->contentOffset(), QPointF(2 * 390, 0));
    ui::CollectionViewCell *page = pages->cellForItemAtIndexPath(ui::IndexPath::forItem(2, 0));
    ASSERT_TRUE(page);
    ASSERT_TRUE(imageOf(page));
    EXPECT_EQ(imageOf(page)->pixels().size(), QSize(300, 200)) << "0:2 is landscape";

    // A swipe to the left shows the next asset: the first of section 1.
    drag(pages, QPointF(300, 400), QPointF(-200, 0), &clock);
    stepUntilStill(pages);
    EXPECT_EQ(pages->contentOffset(), QPointF(3 * 390, 0));
    EXPECT_EQ(oneUp->currentIndexPath(), ui::IndexPath::forItem(0, 1));
    EXPECT_EQ(oneUp->title(), QStringLiteral("4 of 380"));

    // A double tap zooms in where it was, another zooms back out.
    ui::ScrollView *zoom = oneUp->currentPageScrollView();
    ASSERT_TRUE(zoom);
    tap(zoom, QPointF(100, 300), &clock);
    ui::sendTouches(zoom, ui::TouchPhase::Began, {{0, {100, 300}}}, clock += 0.1);
    ui::sendTouches(zoom, ui::TouchPhase::Ended, {{0, {100, 300}}}, clock += 0.05);
    frames.step(60); // an animated zoom
    EXPECT_NEAR(zoom->zoomScale(), VUOneUpViewController::kDoubleTapZoomScale, 1e-6);
    EXPECT_LT(zoom->contentOffset().x(), 390 * 2.5 / 2) << "zoomed into the left half, where the taps were";
    tap(zoom, QPointF(200, 400), &clock);
    ui::sendTouches(zoom, ui::TouchPhase::Began, {{0, {200, 400}}}, clock += 0.1);
    ui::sendTouches(zoom, ui::TouchPhase::Ended, {{0, {200, 400}}}, clock += 0.05);
    frames.step(60);
    EXPECT_NEAR(zoom->zoomScale(), 1.0, 1e-6);
}

TEST_F(TilingFixture, TheHelperFindsTheAssetInTheNewSessionOrOpensNothing)
{
    ui::Window window;
    auto *screen = new ui::ViewController;
    window.setRootViewController(screen);
    window.resize(390, 844);
    window.show();
    VUTesterTilingViewSettings::sharedInstance()->setNumberOfSections(31);

    VUOneUpPresentationHelper helper(screen, [] { return VUTesterBrowsingSession::newBrowsingSession(); });
    const VUTesterTilingDataSource elsewhere(VUTesterTilingDataSource::SectionedItems{{QStringLiteral("x"), QStringLiteral("20:4")}});
    EXPECT_FALSE(helper.presentOneUpForAssetReference(*elsewhere.assetReferenceAtIndexPath({0, 0}), false)) << "no item 'x' there";
    EXPECT_EQ(screen->presentedViewController(), nullptr);

    // Found by its item, away from its old place; presented, as the screen has no navigation.
    ASSERT_TRUE(helper.presentOneUpForAssetReference(*elsewhere.assetReferenceAtIndexPath({0, 1}), false));
    EXPECT_EQ(screen->presentedViewController(), helper.oneUpViewController());
    EXPECT_EQ(helper.oneUpViewController()->currentIndexPath(), ui::IndexPath::forItem(4, 20));
}

namespace {

// Answers when told to; it may go on answering requests it was asked to cancel, as a slow
// provider whose work was already under way does.
class LateProvider : public VUMediaProvider {
public:
    bool honoursCancel = true;
    QList<VUMediaRequestID> cancelled;
    QHash<const graphics::Image *, QString> madeFor;

    VUMediaRequestID requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &, VUImageContentMode, const VUMediaRequestOptions &,
                                          ImageResultHandler handler) override
    {
        m_requests.emplace(++m_next, Request{asset.uuid(), QSizeF(asset.pixelWidth(), asset.pixelHeight()), std::move(handler)});
        return m_next;
    }
    VUMediaRequestID requestPlayerItemForVideo(const VUDisplayAsset &, const VUMediaRequestOptions &, PlayerItemResultHandler) override { return 0; }
    VUMediaRequestID requestStirShotForAsset(const VUDisplayAsset &, const QSizeF &, VUImageContentMode, const VUMediaRequestOptions &,
                                             StirShotResultHandler) override
    {
        return 0;
    }
    void cancelImageRequest(VUMediaRequestID id) override
    {
        cancelled << id;
        if (honoursCancel)
            m_requests.erase(id);
    }
    int outstanding() const { return int(m_requests.size()); }
    // Newest first: work that was cancelled late also finishes last.
    void answerAll()
    {
        const auto requests = std::exchange(m_requests, {});
        for (auto it = requests.crbegin(); it != requests.crend(); ++it) {
            const Request &request = it->second;
            const graphics::ImagePtr image = VUTesterMediaProvider::_imageForItem(request.uuid, request.size);
            madeFor.insert(image.get(), request.uuid);
            request.handler(image, {});
        }
    }

private:
    struct Request {
        QString uuid;
        QSizeF size;
        ImageResultHandler handler;
    };
    std::map<VUMediaRequestID, Request> m_requests;
    VUMediaRequestID m_next = 0;
};

} // namespace

TEST_F(TilingFixture, LateImagesGoOnlyToTheCellsStillShowingTheirAssets)
{
    auto provider = std::make_shared<LateProvider>();
    auto manager = std::make_shared<VUTesterDataSourceManager>(VUTesterTilingDataSource::initWithRandomSectionedItems());
    QWidget window;
    window.resize(390, 844);
    auto *tiling = new VUTilingView(std::make_shared<VUBrowsingSession>(manager, nullptr, provider), &window);
    tiling->setGeometry(window.rect());
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    ui::CollectionView *view = tiling->collectionView();
    view->layoutIfNeeded();

    const int onScreen = int(view->visibleCells().size());
    EXPECT_EQ(provider->outstanding(), onScreen);
    EXPECT_EQ(ui::Settle::pendingCount(), onScreen) << "images on their way keep the screen unsettled";
    EXPECT_TRUE(ui::Settle::pendingDescriptions().contains(QStringLiteral("image of 0:1")));
    QStringList pending;
    EXPECT_FALSE(ui::Settle::waitUntilSettled(50ms, &pending));
    EXPECT_EQ(pending.size(), onScreen);

    // Scrolled a long way: the cells are reused for other assets and their old requests cancelled.
    view->setContentOffset(QPointF(0, 20000));
    EXPECT_EQ(provider->cancelled.size(), onScreen);
    provider->answerAll();
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
    for (ui::CollectionViewCell *cell : view->visibleCells()) {
        const ui::IndexPath path = *view->indexPathForItemAtPoint(QRectF(cell->geometry()).center());
        ASSERT_TRUE(imageOf(cell));
        EXPECT_EQ(provider->madeFor.value(imageOf(cell).get()), QStringLiteral("%1:%2").arg(path.section()).arg(path.item()));
    }

    // A provider that answers cancelled requests anyway: the answers for assets scrolled away are dropped.
    provider->honoursCancel = false;
    view->setContentOffset(QPointF(0, 40000));
    view->setContentOffset(QPointF(0, 60000));
    EXPECT_GT(provider->outstanding(), int(view->visibleCells().size())) << "answers still due for assets scrolled away";
    provider->answerAll();
    for (ui::CollectionViewCell *cell : view->visibleCells()) {
        const ui::IndexPath path = *view->indexPathForItemAtPoint(QRectF(cell->geometry()).center());
        ASSERT_TRUE(imageOf(cell));
        EXPECT_EQ(provider->madeFor.value(imageOf(cell).get()), QStringLiteral("%1:%2").arg(path.section()).arg(path.item()));
    }
    EXPECT_EQ(ui::Settle::pendingCount(), 0);
}

TEST_F(TilingFixture, ANewerDataSourceKeepsTheBrowserOnItsAssetAndReloadsTheGrid)
{
    using Items = VUTesterTilingDataSource::SectionedItems;
    auto manager = std::make_shared<VUTesterDataSourceManager>(
        std::make_shared<VUTesterTilingDataSource>(Items{{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}}));
    auto session = std::make_shared<VUBrowsingSession>(manager, nullptr, std::make_shared<VUTesterMediaProvider>());
    ui::Window window;
    auto *oneUp = new VUOneUpViewController(session, ui::IndexPath::forItem(2, 0));
    window.setRootViewController(oneUp);
    window.resize(390, 844);
    auto *tiling = new VUTilingView(session);
    tiling->resize(390, 300);
    window.show();
    tiling->show();
    tiling->collectionView()->layoutIfNeeded();
    EXPECT_EQ(oneUp->title(), QStringLiteral("3 of 3"));
    EXPECT_EQ(tiling->collectionView()->visibleCells().size(), 3);

    manager->setAssetsDataSource(std::make_shared<VUTesterTilingDataSource>(
        Items{{QStringLiteral("x")}, {QStringLiteral("y"), QStringLiteral("c"), QStringLiteral("a"), QStringLiteral("z")}}));
    EXPECT_EQ(oneUp->currentIndexPath(), ui::IndexPath::forItem(1, 1)) << "still on c";
    EXPECT_EQ(oneUp->title(), QStringLiteral("3 of 5"));
    EXPECT_EQ(oneUp->collectionView()->contentOffset(), QPointF(2 * 390, 0));
    tiling->collectionView()->layoutIfNeeded();
    EXPECT_EQ(tiling->collectionView()->visibleCells().size(), 5);
    delete tiling;
}
