// Seconds per asset for each media kind at the default long side (3200), into the file-backed
// directory and into the library, beside the same photo made by an ImageMagick + exiftool shell
// pipeline (solid colour with a border, a large centred label, a small time stamp, JPEG with date
// and GPS). The photo is also taken apart: drawing, JPEG encoding, metadata and import.
//
//   build/bench/filler/bench-filler

#include "dispatch/Dispatch.h"
#include "filler/VUTesterLibraryFillOperation.h"
#include "media/VUTesterPhotoWriter.h"
#include "photos/VHAssetChangeRequest.h"
#include "photos/VHPhotoLibrary.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <atomic>

namespace {

double g_peerSecondsPerPhoto = 0;

VUTesterLibraryFillerSettings *benchSettings(qint64 media, qint64 destination)
{
    static VUTesterLibraryFillerSettings *settings = [] {
        auto *s = new VUTesterLibraryFillerSettings;
        s->restoreDefaultValuesRecursively();
        return s;
    }();
    settings->setNumberOfAssetsToAdd(1);
    settings->setMedia(media);
    settings->setFillDestination(destination);
    settings->setOrientation(0);
    settings->setImageOrientation(0);
    settings->setContent(0);
    settings->setLongSide(3200);
    settings->setAspectRatio(double(4.0f / 3.0f));
    settings->setLocation(TWLocationValue(46.5197, 6.6323));
    return settings;
}

// Runs one operation to its end with the main queue turning (Stir Shots join there).
void runOperation(const VUTesterLibraryFillerSettings *settings)
{
    auto operation = VUTesterLibraryFillOperation::create(settings);
    std::atomic<bool> done{false};
    dispatch::Queue::global()->async([&] { operation->runWithCompletionHandler([&] { done = true; }); });
    while (!done)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

void BM_PeerPhotoImageMagickExiftool(benchmark::State &state)
{
    QTemporaryDir dir;
    const QString script = QStringLiteral(
        "convert -size 3136x2336 xc:'#ff0000' -bordercolor '#ff000080' -border 32 "
        "-fill white -gravity center -pointsize 600 -annotate 0 '#1' "
        "-gravity northwest -pointsize 48 -annotate 0 '785512345.678.123' -quality 75 \"$1\" && "
        "exiftool -q -overwrite_original -DateTimeOriginal='2026:11:22 10:00:00' -GPSLatitude=46.5197 -GPSLatitudeRef=N "
        "-GPSLongitude=6.6323 -GPSLongitudeRef=E \"$1\"");
    int n = 0;
    QElapsedTimer clock;
    clock.start();
    for (auto _ : state) {
        const QString out = dir.filePath(QStringLiteral("peer-%1.jpg").arg(n++));
        QProcess process;
        process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script, QStringLiteral("sh"), out});
        if (!process.waitForFinished(120000) || process.exitCode() != 0 || !QFile::exists(out)) {
            state.SkipWithError("the ImageMagick + exiftool pipeline failed (are imagemagick and exiftool installed?)");
            return;
        }
    }
    g_peerSecondsPerPhoto = clock.elapsed() / 1000.0 / double(state.iterations());
    state.counters["s_per_photo"] = g_peerSecondsPerPhoto;
}

void BM_FillAsset(benchmark::State &state)
{
    const qint64 media = state.range(0);
    const qint64 destination = state.range(1);
    const VUTesterLibraryFillerSettings *settings = benchSettings(media, destination);
    QElapsedTimer clock;
    clock.start();
    for (auto _ : state)
        runOperation(settings);
    const double secondsPerAsset = clock.elapsed() / 1000.0 / double(state.iterations());
    state.counters["s_per_asset"] = secondsPerAsset;
    if (media == 0 && g_peerSecondsPerPhoto > 0)
        state.counters["ratio_to_peer"] = secondsPerAsset / g_peerSecondsPerPhoto;
    static const char *const kinds[] = {"photo", "video", "Stir Shot"};
    state.SetLabel(std::string(kinds[media]) + (destination == 0 ? " into the library" : " into the file-backed directory"));
}

// Where a photo's time goes.
void BM_PhotoStage(benchmark::State &state)
{
    const int stage = int(state.range(0));
    const VUTesterLibraryFillerSettings *settings = benchSettings(0, 0);
    auto operation = VUTesterLibraryFillOperation::create(settings);
    const graphics::ImagePtr image = operation->_imageWithSize({3200, 2400}, graphics::Color::hsb(0.3, 1, 1), QStringLiteral("#1"), 0);
    QTemporaryDir dir;
    int n = 0;
    for (auto _ : state) {
        switch (stage) {
        case 0:
            benchmark::DoNotOptimize(operation->_imageWithSize({3200, 2400}, graphics::Color::hsb(0.3, 1, 1), QStringLiteral("#1"), 0));
            break;
        case 1:
        case 2: {
            VUTesterPhotoWriter writer;
            writer.setOutputURL(dir.filePath(QStringLiteral("%1.jpg").arg(n++)));
            writer.setImage(image->pixels());
            if (stage == 1)
                writer.setDate(QDateTime());
            else
                writer.setLocation(VUTesterLocation{46.5197, 6.6323});
            writer.writeImageWithError();
            break;
        }
        case 3: {
            state.PauseTiming();
            VUTesterPhotoWriter writer;
            writer.setOutputURL(dir.filePath(QStringLiteral("%1.jpg").arg(n++)));
            writer.setImage(image->pixels());
            writer.setLocation(VUTesterLocation{46.5197, 6.6323});
            writer.writeImageWithError();
            const QString path = writer.outputURL();
            state.ResumeTiming();
            VHError error;
            VHPhotoLibrary::sharedPhotoLibrary()->performChangesAndWait([path] {
                VHAssetResourceCreationOptions options;
                options.setShouldMoveFile(true);
                VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, path, options);
            }, &error);
            break;
        }
        }
    }
    static const char *const stages[] = {"drawing (content, time stamp, label, oriented)", "JPEG encoding without metadata",
                                         "JPEG encoding with date and GPS", "library import (move, metadata read, catalogue)"};
    state.SetLabel(stages[stage]);
}

} // namespace

BENCHMARK(BM_PeerPhotoImageMagickExiftool)->Unit(benchmark::kMillisecond)->Iterations(4)->UseRealTime();
BENCHMARK(BM_FillAsset)
    ->ArgsProduct({{0, 1, 2}, {1, 0}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(4)
    ->UseRealTime();
BENCHMARK(BM_PhotoStage)->DenseRange(0, 3)->Unit(benchmark::kMillisecond)->Iterations(8)->UseRealTime();
