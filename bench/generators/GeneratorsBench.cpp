// Throughput of every image generator at photo sizes, in Mpixel/s. Each bitmap generator is paired
// with the same pixel function as a plain loop (no per-pixel call, same palette lookup, same reused
// buffer): the compute limit. "ratio_to_plain" is the generator's time over that loop's.
// The radial pattern reports its speed-up over drawing the same wedges with QPainter. The fill
// stack's memory: peak, held by the pixel-buffer pool, and once idle.

#include "ProcessMemory.h"

#include <graphics/PixelBuffer.h>
#include <media/VUTesterConcentricRectsImageGenerator.h>
#include <media/VUTesterFractalImageGenerator.h>
#include <media/VUTesterLayeredImageGenerator.h>
#include <media/VUTesterOrientedImageGenerator.h>
#include <media/VUTesterRadialPatternImageGenerator.h>
#include <media/VUTesterSolidColorImageGenerator.h>
#include <media/VUTesterWatermarkImageGenerator.h>

#include <benchmark/benchmark.h>

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <chrono>
#include <cmath>
#include <functional>
#include <vector>

namespace {

const QSize kSizes[] = {{3200, 2400}, {8000, 6000}};

using PixelFunction = std::function<void(uint32_t *pixels, int w, int h, const VUTesterRGBAColorTable &table)>;

void setRate(benchmark::State &state, QSize size)
{
    state.counters["Mpixel/s"] = benchmark::Counter(double(size.width()) * size.height() * double(state.iterations()) / 1e6,
                                                    benchmark::Counter::kIsRate);
}

// Seconds per image of the plain loop, best of a few runs over one buffer.
double plainLoopSeconds(QSize size, const VUTesterRGBAColorTable &table, const PixelFunction &fill)
{
    std::vector<uint32_t> pixels(size_t(size.width()) * size_t(size.height()));
    double best = 1e9;
    for (int run = 0; run < 3; ++run) {
        const auto start = std::chrono::steady_clock::now();
        fill(pixels.data(), size.width(), size.height(), table);
        benchmark::DoNotOptimize(pixels.data());
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

// Times redraws of a generator at the benchmark's size, `invalidate` run untimed before each.
// Returns seconds per image.
double timeRedraws(benchmark::State &state, VUTesterImageGenerator &generator, const std::function<void()> &invalidate)
{
    const QSize size = kSizes[state.range(0)];
    generator.setImageSize(QSizeF(size));
    generator.generatedImage(); // buffers and tables in place
    double total = 0;
    for (auto _ : state) {
        invalidate();
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(generator.generatedImage());
        total += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
    setRate(state, size);
    return total / double(state.iterations());
}

// Reports the ratio of the generator's time to the plain loop's.
void runBitmap(benchmark::State &state, VUTesterBitmapImageGenerator &generator, const PixelFunction &plain)
{
    const double seconds = timeRedraws(state, generator, [&] { generator.invalidateBitmapContent(); });
    state.counters["ratio_to_plain"] = seconds / plainLoopSeconds(kSizes[state.range(0)], *generator.colorTable(), plain);
}

void fillCheckerboard(uint32_t *pixels, int w, int h, const VUTesterRGBAColorTable &table)
{
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            pixels[size_t(y) * size_t(w) + size_t(x)] = table.rgbaValue(int64_t(x + y));
}

void fillConcentric(uint32_t *pixels, int w, int h, const VUTesterRGBAColorTable &table)
{
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const double dx = std::min(double(x), w - double(x));
            const double dy = std::min(double(y), h - double(y));
            pixels[size_t(y) * size_t(w) + size_t(x)] = table.rgbaValue(int64_t(std::min(dx, dy)));
        }
}

PixelFunction fractalLoop(double cx, double cy, double radius, int64_t limit)
{
    return [=](uint32_t *pixels, int w, int h, const VUTesterRGBAColorTable &table) {
        const double a = 2.0 * radius / std::min(w, h);
        const double bx = -0.5 * w * a + cx;
        const double by = -0.5 * h * a + cy;
        for (int y = 0; y < h; ++y) {
            const double ci = a * y + by;
            for (int x = 0; x < w; ++x) {
                const double cr = a * x + bx;
                double zr = 0, zi = 0;
                int64_t n = 0;
                while (n < limit) {
                    const double zr2 = zr * zr, zi2 = zi * zi;
                    if (zr2 + zi2 > 4.0)
                        break;
                    zi = 2.0 * zr * zi + ci;
                    zr = zr2 - zi2 + cr;
                    ++n;
                }
                pixels[size_t(y) * size_t(w) + size_t(x)] = table.rgbaValue(n);
            }
        }
    };
}

void BM_Checkerboard(benchmark::State &state)
{
    VUTesterBitmapImageGenerator generator;
    runBitmap(state, generator, fillCheckerboard);
}

void BM_Concentric(benchmark::State &state)
{
    VUTesterConcentricRectsImageGenerator generator;
    generator.setRectsColor(graphics::Color::red());
    runBitmap(state, generator, fillConcentric);
}

void BM_FractalDefaults(benchmark::State &state)
{
    VUTesterFractalImageGenerator generator;
    runBitmap(state, generator, fractalLoop(0, 0, 2.0, 100));
}

void BM_FractalUserTransforms(benchmark::State &state)
{
    VUTesterFractalImageGenerator generator;
    generator.setCenterX(-1.3);
    generator.setCenterY(-0.1);
    generator.setInnerRadius(0.1);
    generator.setMaxIterations(200);
    generator.setFractalColorScheme(1);
    runBitmap(state, generator, fractalLoop(-1.3, -0.1, 0.1, 200));
}

void runCanvas(benchmark::State &state, VUTesterImageGenerator &generator, const std::function<void()> &invalidate)
{
    const QSize size = kSizes[state.range(0)];
    generator.setImageSize(QSizeF(size));
    generator.generatedImage();
    for (auto _ : state) {
        invalidate();
        benchmark::DoNotOptimize(generator.generatedImage());
    }
    setRate(state, size);
}

// The default radial pattern drawn the straightforward way: its wedges as one path filled with a
// radial gradient by QPainter, for the generator's speed-up over it.
double painterRadialSeconds(QSize size)
{
    QImage pixels(size, QImage::Format_RGBA8888_Premultiplied);
    const auto start = std::chrono::steady_clock::now();
    pixels.fill(Qt::white);
    QPainter painter(&pixels);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(size.width() * 0.5, size.height() * 0.5);
    const double radius = std::hypot(size.width(), size.height()) * 0.5;
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath wedges;
    const double step = 360.0 / 54;
    for (int i = 0; i < 54; i += 2) {
        wedges.moveTo(centre);
        wedges.arcTo(circle, -step * i, -step);
        wedges.closeSubpath();
    }
    QRadialGradient gradient(centre, radius * 0.5);
    gradient.setColorAt(0.0, Qt::white);
    gradient.setColorAt(1.0, Qt::red);
    painter.fillPath(wedges, gradient);
    painter.end();
    benchmark::DoNotOptimize(pixels.constBits());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void BM_Radial(benchmark::State &state)
{
    VUTesterRadialPatternImageGenerator generator;
    const double seconds = timeRedraws(state, generator, [&] { generator.invalidateImage(); });
    state.counters["speedup_over_painter"] = painterRadialSeconds(kSizes[state.range(0)]) / seconds;
}

// One frame of the default test movie.
void BM_RadialVideoFrame(benchmark::State &state)
{
    VUTesterRadialPatternImageGenerator generator;
    generator.setImageSize(QSizeF(1920, 1080));
    double phase = 0;
    for (auto _ : state) {
        generator.setPhase(phase += 0.1);
        benchmark::DoNotOptimize(generator.generatedImage());
    }
    setRate(state, QSize(1920, 1080));
}

void BM_Solid(benchmark::State &state)
{
    VUTesterSolidColorImageGenerator generator;
    generator.setColor(graphics::Color::blue());
    generator.setBorderColor(graphics::Color::red());
    generator.setBorderSize(QSizeF(10, 20));
    runCanvas(state, generator, [&] { generator.invalidateImage(); });
}

void BM_Watermark(benchmark::State &state)
{
    VUTesterWatermarkImageGenerator generator;
    generator.setWatermarkAttributedString(graphics::StyledText(QStringLiteral("Library Filler 0042"), {200.0, graphics::Color::white(), {}}));
    runCanvas(state, generator, [&] { generator.invalidateImage(); });
}

// The fill operation's stack: content, a small time stamp, a large label, all turned "Right".
std::shared_ptr<VUTesterOrientedImageGenerator> fillStack(std::vector<VUTesterImageGeneratorPtr> *layers)
{
    auto content = std::make_shared<VUTesterRadialPatternImageGenerator>();
    auto stamp = std::make_shared<VUTesterWatermarkImageGenerator>();
    stamp->setWatermarkLocation(1);
    stamp->setWatermarkAttributedString(graphics::StyledText(QStringLiteral("2026-11-22 20:16:12"), {36.0, graphics::Color::black(), graphics::Color::white()}));
    auto label = std::make_shared<VUTesterWatermarkImageGenerator>();
    label->setWatermarkAttributedString(graphics::StyledText(QStringLiteral("Right"), {240.0, graphics::Color::black(), {}}));
    auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
    layered->setImageGenerators({content, stamp, label});
    auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
    oriented->setImageGenerator(layered);
    oriented->setImageOrientation(int64_t(graphics::ImageOrientation::Right));
    *layers = {content, stamp, label, layered, oriented};
    return oriented;
}

void BM_FillStack(benchmark::State &state)
{
    std::vector<VUTesterImageGeneratorPtr> layers;
    const auto oriented = fillStack(&layers);
    runCanvas(state, *oriented, [&] {
        // A new asset: every layer redraws, as in the filler.
        for (const VUTesterImageGeneratorPtr &layer : layers)
            layer->invalidateImage();
    });
}

// Memory of six assets drawn one after another as the filler draws them, each stack made for its
// asset and dropped after it: the most resident while drawing, what the pixel-buffer pool still
// holds right after, and what stays resident once the work has been idle a moment.
void BM_FillStackMemory(benchmark::State &state)
{
    const QSize size = kSizes[state.range(0)];
    for (auto _ : state) {
        const double before = idleResidentMB();
        resetPeakResident();
        for (int asset = 0; asset < 6; ++asset) {
            std::vector<VUTesterImageGeneratorPtr> layers;
            const auto oriented = fillStack(&layers);
            oriented->setImageSize(QSizeF(size));
            benchmark::DoNotOptimize(oriented->generatedImage());
        }
        state.counters["before_MB"] = before;
        state.counters["peak_MB"] = peakResidentMB();
        state.counters["pool_MB"] = double(graphics::retainedPixelBytes()) / (1 << 20);
        state.counters["idle_MB"] = idleResidentMB();
    }
}

} // namespace

#define SIZES ->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(0.5)
BENCHMARK(BM_Checkerboard) SIZES;
BENCHMARK(BM_Concentric) SIZES;
BENCHMARK(BM_Radial) SIZES;
BENCHMARK(BM_RadialVideoFrame)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(0.5);
BENCHMARK(BM_Solid) SIZES;
BENCHMARK(BM_Watermark) SIZES;
BENCHMARK(BM_FillStack) SIZES;
BENCHMARK(BM_FillStackMemory)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(BM_FractalDefaults) SIZES;
BENCHMARK(BM_FractalUserTransforms) SIZES;
