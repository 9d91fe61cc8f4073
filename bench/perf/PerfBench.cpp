// The frame-rate meters and a frame of each baseline environment.
//
// MeterSample / MonotonicClockRead / WallClockRead: a meter's sample (count, clock, store) beside
// a bare read of the system clocks; "vs_clock" is the sample over a bare monotonic read, to be
// kept at 2 or below.
// MeterFps: the rate after 60 and after 1,000,000 samples; the same cost, as it reads two slots.
// EnvironmentFrame: one stepped frame of the harness scrolling an environment at 2,500 points per
// second, offscreen at 390 x 844: the scroll, the cells or tiles it brings, and the paint of the
// window, as the harness times a frame. "work_p99_ms" over 16.7 ms is "budget_share"; "widgets"
// is the most widgets alive at once, which stays with what is on screen.

#include "perf/meters/VUTesterFPSMeter.h"
#include "perf/vexo/VUTesterVexoBaselineViewController.h"

#include "perf/harness/VXPerfFrameRecorder.h"
#include "perf/harness/VXPerfResult.h"
#include "perf/harness/VXPerfScrollDriver.h"
#include "ui/DisplayLink.h"
#include "ui/NavigationController.h"
#include "ui/ScrollView.h"
#include "ui/Window.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <functional>

namespace {

double clockRead(clockid_t clock)
{
    timespec now;
    clock_gettime(clock, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// Best of several runs of `calls` calls, in seconds per call.
double bestSecondsPerCall(int calls, const std::function<void()> &call)
{
    double best = 1e9;
    for (int run = 0; run < 7; ++run) {
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < calls; ++i)
            call();
        best = std::min(best, double(timer.nsecsElapsed()) * 1e-9 / calls);
    }
    return best;
}

void MonotonicClockRead(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(clockRead(CLOCK_MONOTONIC));
}
BENCHMARK(MonotonicClockRead);

void WallClockRead(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(clockRead(CLOCK_REALTIME));
}
BENCHMARK(WallClockRead);

void MeterSample(benchmark::State &state)
{
    VUTesterFPSMeter meter;
    for (auto _ : state) {
        meter.sample();
        benchmark::ClobberMemory();
    }
    const double sample = bestSecondsPerCall(1000000, [&] { meter.sample(); });
    const double clock = bestSecondsPerCall(1000000, [] { benchmark::DoNotOptimize(clockRead(CLOCK_MONOTONIC)); });
    state.counters["vs_clock"] = sample / clock;
}
BENCHMARK(MeterSample);

void MeterFps(benchmark::State &state)
{
    VUTesterFPSMeter meter;
    for (qint64 i = 0; i < state.range(0); ++i)
        meter.sample();
    for (auto _ : state)
        benchmark::DoNotOptimize(meter.fps());
}
BENCHMARK(MeterFps)->Arg(60)->Arg(1000000);

// Runs the event loop, with frames stepped, until `done` or about five seconds of frames.
template <typename Done>
void stepUntil(ui::DisplayLink::ManualStepping &frames, Done done)
{
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < 5000) {
        frames.step();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 16);
    }
}

void EnvironmentFrame(benchmark::State &state, const char *content)
{
    ui::DisplayLink::ManualStepping frames(60);
    ui::Window window;
    auto *baseline = new VUTesterVexoBaselineViewController;
    window.setRootViewController(new ui::NavigationController(baseline));
    window.resize(390, 844);
    window.show();
    QCoreApplication::processEvents();
    ui::ScrollView *scrollView = nullptr;
    baseline->prepareForScrollTestWithName(QString(), {{QStringLiteral("content"), QString::fromLatin1(content)}},
                                           [&](ui::ScrollView *view) { scrollView = view; });
    stepUntil(frames, [&] { return scrollView != nullptr; });
    if (!scrollView) {
        state.SkipWithError("the environment was not ready");
        return;
    }
    VXPerfFrameRecorder recorder(scrollView);
    VXPerfScrollDriver driver(scrollView, 2500, 1e9, {});
    recorder.start();
    driver.start();
    for (auto _ : state)
        frames.step();
    recorder.stop();

    const VXPerfResult result = VXPerfResult::fromFrames(QString(), recorder.timestamps(), recorder.work(), recorder.refreshInterval());
    state.counters["work_p50_ms"] = result.workMs.p50;
    state.counters["work_p99_ms"] = result.workMs.p99;
    state.counters["budget_share"] = result.workMs.p99 / (1000.0 / 60);
    state.counters["widgets"] = double(recorder.peakWidgets());
}
BENCHMARK_CAPTURE(EnvironmentFrame, NullScrollView, "NullScrollView")->Unit(benchmark::kMillisecond)->Iterations(600);
BENCHMARK_CAPTURE(EnvironmentFrame, NullCollectionView, "NullCollectionView")->Unit(benchmark::kMillisecond)->Iterations(600);
BENCHMARK_CAPTURE(EnvironmentFrame, NullTilingController, "NullTilingController")->Unit(benchmark::kMillisecond)->Iterations(600);
BENCHMARK_CAPTURE(EnvironmentFrame, CurioStressCollection, "CurioStressCollection")->Unit(benchmark::kMillisecond)->Iterations(600);

} // namespace
