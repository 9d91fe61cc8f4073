// Movie decoding and playback at 1080p, against the movie's own rate of 24 pictures a second:
// - every picture of a 4 s movie decoded in order, at full size and at a phone view's size
//   ("realtime" is pictures decoded per second over 24: above 1 playback can keep up);
// - seeks to times spread over the movie, with x264's default key-frame spacing (one key frame in
//   the whole movie) and with one key frame a second;
// - the player playing the whole movie on the real frame timer (60 Hz offscreen), counting the
//   pictures it presented and those decoded too late to be shown.
// The movies are the module's own test pattern (a turning radial pattern under a time stamp),
// written once into a temporary folder.

#include "media/VUTesterDefaultVideoGenerator.h"

#include <movie/MovieDecoder.h>
#include <movie/MovieWriter.h>
#include <movie/PixelBufferAdaptor.h>
#include <movie/VideoInput.h>
#include <player/VUMoviePlayer.h>

#include <dispatch/Dispatch.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <random>

namespace {

constexpr int kFPS = 24;
constexpr int kFrames = 4 * kFPS;
const QSize kMovieSize(1920, 1080);
const QSize kPhoneViewSize(1170, 658); // a 390-point-wide view at 3 pixels a point

// A 1080p movie of the test pattern with a key frame every `keyFrameInterval` pictures (0: the
// encoder's choice), written on first use and kept for the run.
QString benchMovie(int keyFrameInterval)
{
    static QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("pattern-%1.mov").arg(keyFrameInterval));
    if (QFile::exists(path))
        return path;
    auto writer = movie::MovieWriter::create(path, movie::MovieFileType::QuickTimeMovie);
    auto input = std::make_shared<movie::VideoInput>(
        movie::VideoOutputSettings{movie::kVideoCodecH264, kMovieSize.width(), kMovieSize.height(), keyFrameInterval});
    movie::PixelBufferAdaptor adaptor(writer, input);
    writer->addInput(input);
    writer->startWriting();
    writer->startSession({0, kFPS});
    for (int i = 0; i < kFrames; ++i) {
        const double time = double(i) / kFPS;
        movie::PixelBufferPtr buffer = adaptor.createPooledPixelBuffer();
        QImage target(buffer->baseAddress(), buffer->width(), buffer->height(), int(buffer->bytesPerRow()), QImage::Format_RGB32);
        QPainter(&target).drawImage(0, 0, VUTesterDefaultVideoGenerator::_imageForTime(time, QSizeF(kMovieSize),
                                                                                       VUTesterDefaultVideoGenerator::_timeStampLabel(time)));
        adaptor.appendPixelBuffer(*buffer, {i, kFPS});
    }
    input->markAsFinished();
    writer->endSession({kFrames, kFPS});
    dispatch::Semaphore done;
    writer->finishWriting([&] { done.signal(); });
    done.wait();
    if (writer->status() != movie::MovieWriter::Status::Completed)
        qFatal("cannot write the benchmark movie: %s", qPrintable(writer->error()));
    return path;
}

std::unique_ptr<movie::MovieDecoder> openDecoder(benchmark::State &state, const QString &path)
{
    QString error;
    auto decoder = movie::MovieDecoder::open(path, &error);
    if (!decoder)
        state.SkipWithError(error.toStdString().c_str());
    return decoder;
}

void BM_DecodeInOrder(benchmark::State &state)
{
    const QString path = benchMovie(0);
    const QSize maximum = state.range(0) ? kPhoneViewSize : QSize();
    qint64 pictures = 0;
    for (auto _ : state) {
        auto decoder = openDecoder(state, path);
        if (!decoder)
            return;
        decoder->setMaximumSize(maximum);
        movie::VideoFrame frame;
        QString error;
        while (decoder->readNextFrame(&frame, &error))
            ++pictures;
    }
    state.counters["pictures/s"] = benchmark::Counter(double(pictures), benchmark::Counter::kIsRate);
    state.counters["realtime"] = benchmark::Counter(double(pictures) / kFPS, benchmark::Counter::kIsRate);
    state.SetLabel(maximum.isEmpty() ? "1920x1080" : "scaled to 1170x658");
}

void BM_Seek(benchmark::State &state)
{
    const int keyFrameInterval = int(state.range(0));
    auto decoder = openDecoder(state, benchMovie(keyFrameInterval));
    if (!decoder)
        return;
    decoder->setMaximumSize(kPhoneViewSize);
    std::mt19937 random(17);
    std::uniform_real_distribution<double> times(0, double(kFrames) / kFPS);
    const qint64 decodedBefore = decoder->decodedFrameCount();
    for (auto _ : state) {
        movie::VideoFrame frame;
        QString error;
        decoder->seek(times(random), &frame, &error);
        benchmark::DoNotOptimize(frame.image);
    }
    state.counters["decoded/seek"] = double(decoder->decodedFrameCount() - decodedBefore) / double(state.iterations());
    state.SetLabel(keyFrameInterval ? "a key frame a second" : "one key frame in 4 s");
}

void BM_PlayerRealTime(benchmark::State &state)
{
    const QString path = benchMovie(0);
    const QSize maximum = state.range(0) ? kPhoneViewSize : QSize();
    qint64 presented = 0, dropped = 0;
    for (auto _ : state) {
        VUMoviePlayer player;
        player.setMaximumFrameSize(maximum);
        player.setMovie(path);
        bool ended = false;
        QObject::connect(&player, &VUMoviePlayer::didPlayToEnd, [&] { ended = true; });
        while (player.status() == VUMoviePlayer::Status::Loading || player.isSeeking())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        player.play();
        while (!ended)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        presented += player.presentedFrameCount();
        dropped += player.droppedFrameCount();
    }
    state.counters["presented"] = double(presented) / double(state.iterations());
    state.counters["dropped"] = double(dropped) / double(state.iterations());
    state.SetLabel(maximum.isEmpty() ? "1920x1080, 96 pictures" : "scaled to 1170x658, 96 pictures");
}

} // namespace

BENCHMARK(BM_DecodeInOrder)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);
BENCHMARK(BM_Seek)->Arg(0)->Arg(24)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlayerRealTime)->Arg(0)->Arg(1)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(2);
