// Layout generators at 10 to 10,000 items: time per layout and how it grows (the fitted
// complexity should be linear). The layouts playground at m = 100, T = 2000 (23 views, about
// 2,000 boxes): time from a tap on an item to the strip laid out again and painted, against a
// 16.7 ms frame ("frame_share": the tap's share of one frame; "taps_taken": 1 when every tap
// changed the input); "labels_made" counts the distinct label records seen over the run, which stays
// at the number of boxes when labels are recycled.

#include <layouts/VUTesterLayoutGeneratorPlaygroundSettings.h>
#include <layouts/VUTesterLayoutsPlaygroundViewController.h>

#include "ui/GestureRecognizer.h"
#include "ui/NavigationController.h"
#include "ui/Window.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QPixmap>

#include <chrono>
#include <random>
#include <set>

namespace {

constexpr double kFrameSeconds = 1.0 / 60;

using FactoryFunction = VXLayoutGeneratorFactory (*)();
const FactoryFunction kFactories[] = {&VUTesterExploreLayoutSettings::layoutGeneratorFactory,
                                      &VUTesterLatticerPlaygroundSettings::layoutGeneratorFactory,
                                      &VUTesterYearsMonthsLayoutsSettings::layoutGeneratorFactory};
const char *const kNames[] = {"explore", "latticer", "years-months"};

// Photo-like items: mostly squares, portraits and landscapes, some panos, a few heavier.
std::vector<VXLayoutItem> photoItems(qint64 count)
{
    std::mt19937 random(13);
    const QSizeF shapes[] = {{300, 300}, {300, 400}, {400, 300}, {400, 300}, {1000, 300}, {300, 1000}};
    std::vector<VXLayoutItem> items;
    for (qint64 i = 0; i < count; ++i)
        items.emplace_back(shapes[random() % std::size(shapes)], random() % 8 == 0 ? 1.0 : 0.0);
    return items;
}

void BM_Generator(benchmark::State &state, int generatorIndex)
{
    const VXLayoutGeneratorFactory factory = kFactories[generatorIndex]();
    const qint64 count = state.range(0);
    const std::vector<VXLayoutItem> items = photoItems(count);
    std::vector<VXLayoutGeometry> geometries(static_cast<size_t>(count));
    for (auto _ : state) {
        const std::unique_ptr<VXLayoutGenerator> generator = factory(QSizeF(390, 844));
        generator->setItemCount(count);
        generator->setKeyItemIndex(0);
        generator->setItemLayoutInfoBlock([&items](qint64 i) { return items[size_t(i)]; });
        generator->getGeometries(geometries.data(), {0, generator->numberOfGeometriesWithKind(VXLayoutGeometryKindItem)}, VXLayoutGeometryKindItem);
        benchmark::DoNotOptimize(geometries.data());
    }
    state.SetComplexityN(count);
    state.counters["items/s"] = benchmark::Counter(double(count) * double(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_PlaygroundTapToRedraw(benchmark::State &state)
{
    VUTesterLayoutsPlaygroundSettings settings;
    settings.setDefaultValues();
    settings.setMaximumNumberOfItems(100);
    settings.setMaximumTotalNumberOfItems(2000);
    auto *playground = new VUTesterLayoutsPlaygroundViewController(kFactories[state.range(0)](), {}, &settings);
    ui::Window window;
    auto *navigation = new ui::NavigationController(new ui::ViewController);
    window.setRootViewController(navigation);
    window.resize(390, 844);
    window.show();
    navigation->pushViewController(playground, false);
    QCoreApplication::processEvents();

    const QList<VUTesterLayoutGeneratorOutputView *> &views = playground->outputViews();
    qint64 boxes = 0;
    for (const VUTesterLayoutGeneratorOutputView *view : views)
        boxes += qint64(view->outputViews().size());
    // Item 5 of the first view, where it is now, in the root view's coordinates: each tap toggles
    // it between a square and a pano, which may move it.
    const VUTesterLayoutGeneratorOutputView *first = views.first();
    const auto target = [&] {
        const QPointF inView = (first->outputViews()[5]->frame.center() + first->frame().topLeft()) * first->drawingScale()
                             - QPointF(first->geometry().topLeft());
        return QPointF(first->mapTo(playground->view(), inView.toPoint()));
    };
    QPointF at = target();
    std::set<const void *> labels;
    double time = 0;
    qint64 changes = 0;
    double seconds = 0;
    for (auto _ : state) {
        const std::shared_ptr<const VUTesterLayoutInput> before = playground->inputManager()->layoutInput();
        const auto start = std::chrono::steady_clock::now();
        time += 1;
        ui::sendTouches(playground->view(), ui::TouchPhase::Began, {{0, at}}, time);
        ui::sendTouches(playground->view(), ui::TouchPhase::Ended, {{0, at}}, time + 0.05);
        for (VUTesterLayoutGeneratorOutputView *view : views)
            view->layoutIfNeeded();
        benchmark::DoNotOptimize(window.grab());
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        state.PauseTiming();
        changes += playground->inputManager()->layoutInput() != before;
        for (const VUTesterLayoutGeneratorOutputView *view : views)
            for (const VUTesterLayoutGeneratorOutputView::Label *label : view->outputViews())
                labels.insert(label);
        QCoreApplication::processEvents();
        at = target();
        state.ResumeTiming();
    }
    state.SetLabel(kNames[state.range(0)]);
    state.counters["views"] = double(views.size());
    state.counters["boxes"] = double(boxes);
    state.counters["labels_made"] = double(labels.size());
    state.counters["taps_taken"] = double(changes) / double(state.iterations());
    state.counters["frame_share"] = seconds / double(state.iterations()) / kFrameSeconds;
}

} // namespace

BENCHMARK_CAPTURE(BM_Generator, explore, 0)->RangeMultiplier(10)->Range(10, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Generator, latticer, 1)->RangeMultiplier(10)->Range(10, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Generator, years_months, 2)->RangeMultiplier(10)->Range(10, 10000)->Complexity(benchmark::oN)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_PlaygroundTapToRedraw)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
