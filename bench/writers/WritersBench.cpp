// Photo and movie writing beside the encoders underneath them, in one run:
// - JPEG with metadata through VUTesterPhotoWriter (file written and committed) against a bare
//   libjpeg-turbo encode of the same pixels into memory with the same quality and sampling;
// - movies through VUTesterVideoWriter (ARGB buffer, conversion, x264, QuickTime muxing) against
//   libx264 through libavcodec fed the same frames, already in YUV, with the same preset;
// - peak and idle memory, and the most pool threads, of the default video generator over a 36 s
//   and a 360 s movie at 10 fps.
// "ratio" is our time over the bare encoder's: 1.0 would be the encoder's own speed.

#include "media/VUTesterDefaultVideoGenerator.h"
#include "media/VUTesterPhotoWriter.h"
#include "media/VUTesterVideoWriter.h"

#include "ProcessMemory.h"

#include <dispatch/Dispatch.h>
#include <imageio/ImageDestination.h>
#include <movie/VideoInput.h>

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include <jpeglib.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

QImage testPicture(int width, int height, double phase = 0.0)
{
    return VUTesterDefaultVideoGenerator::_imageForTime(phase, QSizeF(width, height), VUTesterDefaultVideoGenerator::_timeStampLabel(phase));
}

size_t bareJPEG(const QImage &image)
{
    jpeg_compress_struct cinfo;
    jpeg_error_mgr error;
    cinfo.err = jpeg_std_error(&error);
    jpeg_create_compress(&cinfo);
    unsigned char *output = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&cinfo, &output, &size);
    cinfo.image_width = JDIMENSION(image.width());
    cinfo.image_height = JDIMENSION(image.height());
    cinfo.input_components = 4;
    cinfo.in_color_space = JCS_EXT_RGBX;
    jpeg_set_defaults(&cinfo);
    jpeg_set_quality(&cinfo, imageio::ImageDestination::kDefaultJPEGQuality, TRUE);
    jpeg_start_compress(&cinfo, TRUE);
    while (cinfo.next_scanline < cinfo.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(image.constScanLine(int(cinfo.next_scanline)));
        jpeg_write_scanlines(&cinfo, &row, 1);
    }
    jpeg_finish_compress(&cinfo);
    jpeg_destroy_compress(&cinfo);
    std::free(output);
    return size;
}

void BM_PhotoWriter(benchmark::State &state)
{
    const int width = int(state.range(0)), height = int(state.range(1));
    const QImage picture = testPicture(width, height);
    QTemporaryDir dir;
    double bareSeconds = 0, ourSeconds = 0;
    bool bareFirst = false;
    for (auto _ : state) {
        VUTesterPhotoWriter writer;
        writer.setOutputURL(dir.filePath(QStringLiteral("bench.jpg")));
        writer.setImage(picture);
        writer.setLocation(VUTesterLocation{37.785834, -122.406417});
        writer.setStirShotPairingIdentifier(QStringLiteral("5E1B6F0C-9A44-4C6B-8C0E-2B7D4A1F9E33"));
        // Whichever runs second finds a 3200 x 2400 picture still in the last-level cache; take turns.
        const auto bare = [&] {
            const Clock::time_point start = Clock::now();
            benchmark::DoNotOptimize(bareJPEG(picture));
            bareSeconds += secondsSince(start);
        };
        if (bareFirst)
            bare();
        const Clock::time_point start = Clock::now();
        if (!writer.writeImageWithError())
            state.SkipWithError("write failed");
        const double ours = secondsSince(start);
        state.SetIterationTime(ours);
        ourSeconds += ours;
        if (!bareFirst)
            bare();
        bareFirst = !bareFirst;
    }
    const double pixels = double(width) * height * double(state.iterations());
    state.counters["Mpixel/s"] = pixels / ourSeconds / 1e6;
    state.counters["libjpeg_Mpixel/s"] = pixels / bareSeconds / 1e6;
    state.counters["ratio"] = ourSeconds / bareSeconds;
}

// Frames that change from one to the next, as real test movies do; an encoder given one frame
// over and over would skip nearly all the work.
std::vector<QImage> testFrames(int width, int height, int count)
{
    std::vector<QImage> frames;
    for (int i = 0; i < count; ++i)
        frames.push_back(testPicture(width, height, i / 24.0));
    return frames;
}

// libx264 alone: the frames converted to YUV beforehand, packets thrown away.
double bareEncodeSeconds(const std::vector<QImage> &frames, int frameCount)
{
    const int width = frames.front().width(), height = frames.front().height();
    SwsContext *scaler = sws_getContext(width, height, AV_PIX_FMT_RGB0, width, height, AV_PIX_FMT_YUV420P, SWS_BILINEAR, nullptr, nullptr, nullptr);
    std::vector<AVFrame *> yuv;
    for (const QImage &image : frames) {
        AVFrame *frame = av_frame_alloc();
        frame->format = AV_PIX_FMT_YUV420P;
        frame->width = width;
        frame->height = height;
        av_frame_get_buffer(frame, 0);
        const uint8_t *source[4] = {image.constBits(), nullptr, nullptr, nullptr};
        const int stride[4] = {int(image.bytesPerLine()), 0, 0, 0};
        sws_scale(scaler, source, stride, 0, height, frame->data, frame->linesize);
        yuv.push_back(frame);
    }
    sws_freeContext(scaler);

    const Clock::time_point start = Clock::now();
    const AVCodec *encoder = avcodec_find_encoder_by_name("libx264");
    AVCodecContext *codec = avcodec_alloc_context3(encoder);
    codec->width = width;
    codec->height = height;
    codec->time_base = AVRational{1, 24};
    codec->framerate = AVRational{24, 1};
    codec->pix_fmt = AV_PIX_FMT_YUV420P;
    codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    av_opt_set(codec->priv_data, "preset", movie::VideoInput::kX264Preset, 0);
    avcodec_open2(codec, encoder, nullptr);
    AVPacket *packet = av_packet_alloc();
    for (int i = 0; i <= frameCount; ++i) {
        AVFrame *frame = i < frameCount ? yuv[size_t(i) % yuv.size()] : nullptr;
        if (frame) {
            av_frame_make_writable(frame);
            frame->pts = i;
        }
        avcodec_send_frame(codec, frame);
        while (avcodec_receive_packet(codec, packet) == 0)
            av_packet_unref(packet);
    }
    const double seconds = secondsSince(start);
    av_packet_free(&packet);
    avcodec_free_context(&codec);
    for (AVFrame *frame : yuv)
        av_frame_free(&frame);
    return seconds;
}

void BM_VideoWriter(benchmark::State &state)
{
    const int width = int(state.range(0)), height = int(state.range(1));
    const std::vector<QImage> frames = testFrames(width, height, 24);
    QTemporaryDir dir;
    const double duration = 2.0, fps = 24.0;
    const int frameCount = 49;
    double bareSeconds = 0, ourSeconds = 0;
    for (auto _ : state) {
        VUTesterVideoWriter writer;
        writer.setOutputURL(dir.filePath(QStringLiteral("bench.mov")));
        writer.setOutputDuration(duration);
        writer.setOutputFPS(fps);
        int next = 0;
        writer.setFrameGenerator([&](double) { return frames[size_t(next++) % frames.size()]; });
        dispatch::Semaphore done;
        bool failed = false;
        const Clock::time_point start = Clock::now();
        writer.createVideoWithCompletionHandler([&](VUTesterOptionalError error) {
            failed = error.has_value();
            done.signal();
        });
        done.wait();
        const double ours = secondsSince(start);
        if (failed)
            state.SkipWithError("encode failed");
        state.SetIterationTime(ours);
        ourSeconds += ours;
        bareSeconds += bareEncodeSeconds(frames, frameCount);
    }
    const double encoded = double(frameCount) * double(state.iterations());
    state.counters["frames/s"] = encoded / ourSeconds;
    state.counters["x264_frames/s"] = encoded / bareSeconds;
    state.counters["ratio"] = ourSeconds / bareSeconds;
}

void BM_DefaultVideoGeneratorPeakMemory(benchmark::State &state)
{
    const double duration = double(state.range(0));
    for (auto _ : state) {
        VUTesterDefaultVideoGenerator generator;
        generator.setVideoSize(QSizeF(384, 216));
        generator.setVideoDuration(duration);
        generator.setVideoFPS(10.0);
        const QString suffix = QStringLiteral("bench-memory");
        QFile::remove(VUTesterDefaultVideoGenerator::_videoPath(generator.videoSize(), duration, 10.0, suffix));
        resetPeakResident();
        const double before = peakResidentMB();
        const int threadsBefore = dispatch::workerThreadCount();
        std::atomic<bool> running{true};
        std::atomic<int> mostThreads{threadsBefore};
        std::thread sampler([&] {
            while (running) {
                mostThreads = std::max(mostThreads.load(), dispatch::workerThreadCount());
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        });
        QString path;
        dispatch::Semaphore done;
        generator.generateVideoWithFileNameSuffix(suffix, [&](const QString &moviePath, VUTesterOptionalError) {
            path = moviePath;
            done.signal();
        });
        done.wait();
        running = false;
        sampler.join();
        if (path.isEmpty())
            state.SkipWithError("generation failed");
        state.counters["peak_MB"] = peakResidentMB();
        state.counters["growth_MB"] = peakResidentMB() - before;
        state.counters["idle_MB"] = idleResidentMB();
        state.counters["pool_threads_peak"] = mostThreads.load();
        state.counters["frames"] = std::floor(duration * 10.0) + 1;
        QFile::remove(path);
    }
}

} // namespace

BENCHMARK(BM_DefaultVideoGeneratorPeakMemory)->Arg(36)->Arg(360)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();
BENCHMARK(BM_PhotoWriter)->Args({3200, 2400})->Args({8000, 6000})->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_VideoWriter)->Args({1920, 1080})->Args({1440, 1080})->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(3);
