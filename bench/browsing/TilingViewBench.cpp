// The tiling view playground scrolled offscreen, frame by frame: the grid of 3141 sections of
// placeholder pictures that an engineer flings through.
//
// TilingViewScrollFrame/SPEED: one frame at SPEED points per second (2,000 a brisk scroll, 8,000
// a hard fling): "update_ms" moves the content and brings the cells up to date (layout query,
// reuse, one placeholder drawn per cell that comes into view), "paint_ms" paints the window.
// "budget_share" is the frame over the 16.7 ms of a 60 Hz display; "new_cells" the cells that
// came into view per frame.

#include <layouts/VUTesterTilingViewSettings.h>
#include <playgrounds/tiling/VUTesterTilingViewPlaygroundViewController.h>

#include <browsing/VUTilingView.h>

#include <ui/CollectionView.h>
#include <ui/Window.h>

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double secondsBetween(Clock::time_point start, Clock::time_point end)
{
    return std::chrono::duration<double>(end - start).count();
}

void TilingViewScrollFrame(benchmark::State &state)
{
    VUTesterTilingViewSettings::sharedInstance()->setNumberOfSections(3141);
    ui::Window window;
    auto *playground = new VUTesterTilingViewPlaygroundViewController;
    window.setRootViewController(playground);
    window.resize(390, 844);
    window.show();
    QCoreApplication::processEvents();
    ui::CollectionView *grid = playground->tilingView()->collectionView();
    grid->layoutIfNeeded();

    const double end = grid->maximumContentOffset().y();
    const double step = double(state.range(0)) / 60;
    double y = 0, update = 0, paint = 0;
    qint64 newCells = 0;
    QList<ui::IndexPath> shown = grid->indexPathsForVisibleItems();
    for (auto _ : state) {
        y = y + step > end ? 0 : y + step;
        const auto start = Clock::now();
        grid->setContentOffset(QPointF(0, y));
        const auto placed = Clock::now();
        window.repaint();
        update += secondsBetween(start, placed);
        paint += secondsBetween(placed, Clock::now());

        state.PauseTiming();
        const QList<ui::IndexPath> now = grid->indexPathsForVisibleItems();
        for (const ui::IndexPath &path : now)
            newCells += !std::binary_search(shown.begin(), shown.end(), path);
        shown = now;
        state.ResumeTiming();
    }
    const double frames = double(state.iterations());
    state.counters["cells"] = double(shown.size());
    state.counters["new_cells"] = double(newCells) / frames;
    state.counters["update_ms"] = update / frames * 1e3;
    state.counters["paint_ms"] = paint / frames * 1e3;
    state.counters["budget_share"] = (update + paint) / frames / (1.0 / 60);
}
BENCHMARK(TilingViewScrollFrame)->Arg(2000)->Arg(8000)->Unit(benchmark::kMillisecond);

} // namespace
