// The layouts and the tiling machinery under load.
//
// ContinuousLayoutQuery: a screenful rectangle query of the sharing strip layout at 1,000 to
// 100,000 items. "speedup" is a scan of all its attributes (what a layout without the binary
// search would do) over the query; the query's own cost should grow with log n.
// NullGridEnumeration: one screenful of the null grid at 10,000 and 1,000,000 tiles;
// "vs_10000" is the cost over that at 10,000 tiles, which should stay near 1.
// NullGridScrollFrame: one frame of scrolling the null grid screen offscreen at 2,000 points per
// second: the tiling update (layout, check-in, check-out, geometry) and the paint of the window.
// "budget_share" is the frame over the 16.7 ms of a 60 Hz display.

#include <layouts/VUTesterSharingCollectionViewLayout.h>
#include <layouts/VUTesterNullGridLayout.h>
#include <layouts/VUTesterTilingControllerNullGridViewController.h>

#include <ui/CollectionView.h>
#include <ui/ScrollView.h>
#include <ui/Window.h>

#include <QCoreApplication>
#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Best of a few runs of `runs` calls, in seconds per call.
double bestSecondsPerCall(int runs, const std::function<void()> &call)
{
    double best = 1e9;
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto start = Clock::now();
        for (int i = 0; i < runs; ++i)
            call();
        best = std::min(best, secondsSince(start) / runs);
    }
    return best;
}

class StripSource : public ui::CollectionViewDataSource, public ui::CollectionViewDelegate {
public:
    qint64 items = 0;
    qint64 numberOfItemsInSection(ui::CollectionView *, qint64) override { return items; }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *view, const ui::IndexPath &path) override
    {
        return view->dequeueReusableCellWithReuseIdentifier(QStringLiteral("Cell"), path);
    }
    std::optional<QSizeF> sizeForItemAtIndexPath(ui::CollectionView *, ui::CollectionViewLayout *, const ui::IndexPath &path) override
    {
        return QSizeF(100 + (path.item() * 37) % 300, 300);
    }
};

void ContinuousLayoutQuery(benchmark::State &state)
{
    StripSource source;
    source.items = state.range(0);
    auto *layout = new VUTesterSharingCollectionViewLayout;
    ui::CollectionView view(layout);
    view.resize(390, 844);
    view.registerCellClass<ui::CollectionViewCell>(QStringLiteral("Cell"));
    view.setDelegate(&source);
    view.setDataSource(&source);
    layout->setInterItemSpacing(QSizeF(10, 10));
    view.layoutIfNeeded();

    const QList<ui::CollectionViewLayoutAttributes> all = layout->allLayoutAttributes();
    const double width = layout->collectionViewContentSize().width();
    QRandomGenerator random(3);
    std::vector<QRectF> screens;
    for (int i = 0; i < 256; ++i)
        screens.emplace_back(random.generateDouble() * (width - 390), 0, 390, 844);

    size_t next = 0, found = 0;
    const auto start = Clock::now();
    for (auto _ : state) {
        const QList<ui::CollectionViewLayoutAttributes> result = layout->layoutAttributesForElementsInRect(screens[next++ & 255]);
        found += size_t(result.size());
        benchmark::DoNotOptimize(result.constData());
    }
    const double query = secondsSince(start) / double(state.iterations());
    const double scan = bestSecondsPerCall(all.size() > 10000 ? 20 : 200, [&] {
        QList<ui::CollectionViewLayoutAttributes> result;
        const QRectF rect = screens[next++ & 255];
        for (const ui::CollectionViewLayoutAttributes &a : all)
            if (ui::intersects(a.frame, rect))
                result.append(a);
        benchmark::DoNotOptimize(result.constData());
    });
    view.setDelegate(nullptr);
    state.counters["items_per_query"] = double(found) / double(state.iterations());
    state.counters["query_us"] = query * 1e6;
    state.counters["scan_us"] = scan * 1e6;
    state.counters["speedup"] = scan / query;
}
BENCHMARK(ContinuousLayoutQuery)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// A 390-point-wide grid of ten columns holding `items` tiles.
std::unique_ptr<VUTesterNullGridLayout> nullGrid(qint64 items)
{
    auto layout = std::make_unique<VUTesterNullGridLayout>();
    layout->setColumns(10);
    layout->setDesiredContentLength((items / 10 - 1) * 39);
    layout->setReferenceSize(QSizeF(390, 844));
    layout->prepareLayout();
    return layout;
}

// Enumerates the screenful in the middle of the grid; returns the tiles reported.
qint64 enumerateMiddleScreen(VUTesterNullGridLayout &layout)
{
    const QRectF screen(0, layout.contentBounds().height() / 2, 390, 844);
    qint64 tiles = 0;
    layout.enumerateTilesInRect(screen, 0, [&tiles](const VXTileIdentifier &, const VXTileGeometry &geometry, VXTileGroup, const void *, bool *) {
        benchmark::DoNotOptimize(&geometry);
        ++tiles;
    });
    return tiles;
}

void NullGridEnumeration(benchmark::State &state)
{
    auto layout = nullGrid(state.range(0));
    qint64 tiles = 0;
    const auto start = Clock::now();
    for (auto _ : state)
        tiles = enumerateMiddleScreen(*layout);
    const double cost = secondsSince(start) / double(state.iterations());
    auto small = nullGrid(10000);
    const double smallCost = bestSecondsPerCall(2000, [&] { enumerateMiddleScreen(*small); });
    state.counters["items"] = double(layout->numberOfItems());
    state.counters["tiles"] = double(tiles);
    state.counters["enumeration_us"] = cost * 1e6;
    state.counters["vs_10000"] = cost / smallCost;
}
BENCHMARK(NullGridEnumeration)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void NullGridScrollFrame(benchmark::State &state)
{
    ui::Window window;
    auto *controller = new VUTesterTilingControllerNullGridViewController;
    window.setRootViewController(controller);
    window.resize(390, 844);
    window.show();
    QCoreApplication::processEvents();
    ui::ScrollView *scroll = controller->scrollView();
    const double end = scroll->maximumContentOffset().y();
    const double step = 2000.0 / 60;
    double y = 0, tiling = 0, paint = 0;
    for (auto _ : state) {
        y = y + step > end ? 0 : y + step;
        const auto start = Clock::now();
        scroll->setContentOffset(QPointF(0, y));
        const auto placed = Clock::now();
        window.repaint();
        tiling += std::chrono::duration<double>(placed - start).count();
        paint += secondsSince(placed);
    }
    const double frames = double(state.iterations());
    state.counters["tiles"] = double(controller->tilesInUse().size());
    state.counters["tiling_ms"] = tiling / frames * 1e3;
    state.counters["paint_ms"] = paint / frames * 1e3;
    state.counters["budget_share"] = (tiling + paint) / frames / (1.0 / 60);
}
BENCHMARK(NullGridScrollFrame)->Unit(benchmark::kMillisecond);

} // namespace
