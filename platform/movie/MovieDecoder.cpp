#include "MovieDecoder.h"

#include "FFmpegError.h"

#include <QFile>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <libyuv/convert_argb.h>
#include <libyuv/scale.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/display.h>
#include <libswscale/swscale.h>
}

namespace movie {
namespace {

// Images kept for reuse. A player holds a handful ahead of the clock; more than this and the
// extra ones are simply freed.
constexpr size_t kPoolLimit = 8;

constexpr double kTimeTolerance = VideoFrame::kTimeTolerance;

// Degrees the picture is turned on display, from the track's display matrix.
double displayRotation(const AVStream *stream)
{
    size_t size = 0;
    const uint8_t *matrix = av_stream_get_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (!matrix || size < 9 * sizeof(int32_t))
        return 0;
    const double degrees = -av_display_rotation_get(reinterpret_cast<const int32_t *>(matrix));
    return std::isfinite(degrees) ? degrees : 0;
}

bool isQuarterTurn(double degrees)
{
    return qRound(std::abs(degrees) / 90.0) % 2 == 1;
}

} // namespace

struct MovieDecoder::State {
    QString path;
    AVFormatContext *format = nullptr;
    AVCodecContext *codec = nullptr;
    AVStream *stream = nullptr;
    AVPacket *packet = nullptr;
    AVFrame *decoded = nullptr; // the picture just decoded
    AVFrame *previous = nullptr; // the one before it while decoding towards a time
    SwsContext *scaler = nullptr;

    double timeBase = 0;
    qint64 startPts = 0;
    double duration = 0;
    double frameRate = 0;
    double rotation = 0;
    QSize storedSize;
    QList<double> keyFrames;
    QSize maximumSize;

    // Where decoding stands: the time of the last picture decoded, and whether the demuxer and
    // then the decoder have run dry.
    double lastTime = -std::numeric_limits<double>::infinity();
    bool demuxerEnded = false;
    bool decoderDrained = false;
    // The last picture handed out, so asking again for a time it covers costs nothing.
    VideoFrame lastFrame;
    bool hasLastFrame = false;

    std::vector<QImage> pool;
    std::vector<uint8_t> scaledPlanes;
    qint64 decodedCount = 0;
    qint64 jumps = 0;

    ~State()
    {
        sws_freeContext(scaler);
        av_frame_free(&decoded);
        av_frame_free(&previous);
        av_packet_free(&packet);
        avcodec_free_context(&codec);
        avformat_close_input(&format);
    }

    double seconds(qint64 pts) const { return double(pts - startPts) * timeBase; }

    QSize scaledStoredSize() const
    {
        if (maximumSize.isEmpty())
            return storedSize;
        const QSize bound = isQuarterTurn(rotation) ? maximumSize.transposed() : maximumSize;
        if (storedSize.width() <= bound.width() && storedSize.height() <= bound.height())
            return storedSize;
        return storedSize.scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    }

    // Next picture into `decoded`: 0, AVERROR_EOF at the end of the track, or another error.
    int decodeOne()
    {
        for (;;) {
            int status = avcodec_receive_frame(codec, decoded);
            if (status == 0) {
                ++decodedCount;
                return 0;
            }
            if (status == AVERROR_EOF)
                decoderDrained = true;
            if (status != AVERROR(EAGAIN))
                return status;
            if (demuxerEnded)
                return AVERROR_EOF;
            status = av_read_frame(format, packet);
            if (status == AVERROR_EOF) {
                demuxerEnded = true;
                avcodec_send_packet(codec, nullptr); // drain the pictures still held back
                continue;
            }
            if (status < 0)
                return status;
            if (packet->stream_index == stream->index) {
                status = avcodec_send_packet(codec, packet);
                av_packet_unref(packet);
                // A damaged packet costs its picture, not the rest of the movie.
                if (status < 0 && status != AVERROR_INVALIDDATA)
                    return status;
            } else {
                av_packet_unref(packet);
            }
        }
    }

    double timeOf(const AVFrame *frame) const
    {
        qint64 pts = frame->best_effort_timestamp;
        if (pts == AV_NOPTS_VALUE)
            pts = frame->pts;
        if (pts == AV_NOPTS_VALUE)
            return std::isfinite(lastTime) ? lastTime + nominalInterval() : 0.0;
        return seconds(pts);
    }
    double durationOf(const AVFrame *frame) const
    {
        return frame->pkt_duration > 0 ? double(frame->pkt_duration) * timeBase : nominalInterval();
    }
    double nominalInterval() const { return frameRate > 0 ? 1.0 / frameRate : 1.0 / 30; }

    // 8-bit 4:2:0, what nearly every H.264 movie holds, goes through libyuv's SIMD scaling and
    // conversion, several times faster than swscale's; false for other formats.
    bool convertWithLibyuv(const AVFrame *frame, QImage &image)
    {
        if (frame->format != AV_PIX_FMT_YUV420P && frame->format != AV_PIX_FMT_YUVJ420P)
            return false;
        const bool fullRange = frame->format == AV_PIX_FMT_YUVJ420P || frame->color_range == AVCOL_RANGE_JPEG;
        const libyuv::YuvConstants *matrix = frame->colorspace == AVCOL_SPC_BT709
            ? (fullRange ? &libyuv::kYuvF709Constants : &libyuv::kYuvH709Constants)
            : (fullRange ? &libyuv::kYuvJPEGConstants : &libyuv::kYuvI601Constants);
        const uint8_t *planes[3] = {frame->data[0], frame->data[1], frame->data[2]};
        int strides[3] = {frame->linesize[0], frame->linesize[1], frame->linesize[2]};
        const int width = image.width(), height = image.height();
        if (width != frame->width || height != frame->height) {
            const int chromaWidth = (width + 1) / 2, chromaHeight = (height + 1) / 2;
            scaledPlanes.resize(size_t(width) * height + 2 * size_t(chromaWidth) * chromaHeight);
            uint8_t *y = scaledPlanes.data(), *u = y + size_t(width) * height, *v = u + size_t(chromaWidth) * chromaHeight;
            if (libyuv::I420Scale(planes[0], strides[0], planes[1], strides[1], planes[2], strides[2], frame->width,
                                  frame->height, y, width, u, chromaWidth, v, chromaWidth, width, height, libyuv::kFilterBox) != 0)
                return false;
            planes[0] = y, planes[1] = u, planes[2] = v;
            strides[0] = width, strides[1] = strides[2] = chromaWidth;
        }
        return libyuv::I420ToARGBMatrix(planes[0], strides[0], planes[1], strides[1], planes[2], strides[2], image.bits(),
                                        int(image.bytesPerLine()), matrix, width, height) == 0;
    }

    bool convertWithSwscale(const AVFrame *frame, QImage &image)
    {
        scaler = sws_getCachedContext(scaler, frame->width, frame->height, AVPixelFormat(frame->format), image.width(),
                                      image.height(), AV_PIX_FMT_RGB32, SWS_BILINEAR | SWS_ACCURATE_RND, nullptr, nullptr, nullptr);
        if (!scaler)
            return false;
        // Pictures say which matrix and range they were encoded with; the default is BT.601.
        const int space = frame->colorspace == AVCOL_SPC_BT709 ? SWS_CS_ITU709 : SWS_CS_DEFAULT;
        sws_setColorspaceDetails(scaler, sws_getCoefficients(space), frame->color_range == AVCOL_RANGE_JPEG,
                                 sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, 1 << 16, 1 << 16);
        uint8_t *planes[1] = {image.bits()};
        const int strides[1] = {int(image.bytesPerLine())};
        sws_scale(scaler, frame->data, frame->linesize, 0, frame->height, planes, strides);
        return true;
    }

    QImage imageFromPool(const QSize &size)
    {
        for (auto it = pool.begin(); it != pool.end(); ++it) {
            if (it->isDetached() && it->size() == size) {
                QImage image = std::move(*it);
                pool.erase(it);
                return image;
            }
        }
        // Images of another size that nobody holds will not be wanted again.
        pool.erase(std::remove_if(pool.begin(), pool.end(), [](const QImage &image) { return image.isDetached(); }), pool.end());
        return QImage(size, QImage::Format_RGB32);
    }

    bool convert(const AVFrame *frame, VideoFrame *out, QString *error)
    {
        const QSize size = scaledStoredSize();
        QImage image = imageFromPool(size);
        if (image.isNull()) {
            *error = QStringLiteral("%1: no memory for a %2 x %3 picture").arg(path).arg(size.width()).arg(size.height());
            return false;
        }
        if (!convertWithLibyuv(frame, image) && !convertWithSwscale(frame, image)) {
            *error = QStringLiteral("%1: cannot convert its pictures").arg(path);
            return false;
        }
        if (rotation != 0) {
            out->image = image.transformed(QTransform().rotate(rotation));
        } else {
            if (pool.size() < kPoolLimit)
                pool.push_back(image);
            out->image = std::move(image);
        }
        out->time = timeOf(frame);
        out->duration = durationOf(frame);
        out->isKeyFrame = frame->key_frame != 0;
        lastFrame = *out;
        hasLastFrame = true;
        return true;
    }

    bool jumpTo(double time, QString *error)
    {
        const qint64 target = startPts + qint64(std::floor(time / timeBase));
        const int status = av_seek_frame(format, stream->index, target, AVSEEK_FLAG_BACKWARD);
        if (status < 0) {
            *error = QStringLiteral("%1: cannot go to %2 s: %3").arg(path).arg(time).arg(ffmpegErrorText(status));
            return false;
        }
        avcodec_flush_buffers(codec);
        demuxerEnded = decoderDrained = false;
        lastTime = -std::numeric_limits<double>::infinity();
        hasLastFrame = false;
        av_frame_unref(previous);
        ++jumps;
        return true;
    }
};

std::unique_ptr<MovieDecoder> MovieDecoder::open(const QString &path, QString *error)
{
    quietenFFmpegLogging();
    auto state = std::make_unique<State>();
    state->path = path;
    int status = avformat_open_input(&state->format, QFile::encodeName(path).constData(), nullptr, nullptr);
    if (status < 0) {
        *error = QStringLiteral("%1: cannot open movie: %2").arg(path, ffmpegErrorText(status));
        return nullptr;
    }
    const AVCodec *codec = nullptr;
    if ((status = avformat_find_stream_info(state->format, nullptr)) < 0
        || (status = av_find_best_stream(state->format, AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0)) < 0) {
        *error = QStringLiteral("%1: no video track: %2").arg(path, ffmpegErrorText(status));
        return nullptr;
    }
    AVStream *stream = state->stream = state->format->streams[status];
    // Other tracks are never read: the demuxer skips their packets.
    for (unsigned i = 0; i < state->format->nb_streams; ++i)
        if (state->format->streams[i] != stream)
            state->format->streams[i]->discard = AVDISCARD_ALL;
    state->codec = avcodec_alloc_context3(codec);
    if (!state->codec || avcodec_parameters_to_context(state->codec, stream->codecpar) < 0) {
        *error = QStringLiteral("%1: no decoder for its video").arg(path);
        return nullptr;
    }
    // As many threads as cores: a 1080p picture then decodes in a fraction of a frame interval.
    state->codec->thread_count = 0;
    if ((status = avcodec_open2(state->codec, codec, nullptr)) < 0) {
        *error = QStringLiteral("%1: cannot open its video decoder: %2").arg(path, ffmpegErrorText(status));
        return nullptr;
    }
    state->packet = av_packet_alloc();
    state->decoded = av_frame_alloc();
    state->previous = av_frame_alloc();

    state->timeBase = av_q2d(stream->time_base);
    state->startPts = stream->start_time != AV_NOPTS_VALUE ? stream->start_time : 0;
    if (state->format->duration != AV_NOPTS_VALUE)
        state->duration = double(state->format->duration) / AV_TIME_BASE;
    else if (stream->duration != AV_NOPTS_VALUE)
        state->duration = double(stream->duration) * state->timeBase;
    const AVRational rate = av_guess_frame_rate(state->format, stream, nullptr);
    state->frameRate = rate.num > 0 && rate.den > 0 ? av_q2d(rate) : 0;
    state->rotation = displayRotation(stream);
    state->storedSize = QSize(stream->codecpar->width, stream->codecpar->height);

    const int entries = avformat_index_get_entries_count(stream);
    for (int i = 0; i < entries; ++i) {
        const AVIndexEntry *entry = avformat_index_get_entry(stream, i);
        if (entry && (entry->flags & AVINDEX_KEYFRAME))
            state->keyFrames.append(std::max(0.0, state->seconds(entry->timestamp)));
    }
    std::sort(state->keyFrames.begin(), state->keyFrames.end());
    state->keyFrames.erase(std::unique(state->keyFrames.begin(), state->keyFrames.end()), state->keyFrames.end());
    if (state->keyFrames.isEmpty())
        state->keyFrames.append(0.0);
    return std::unique_ptr<MovieDecoder>(new MovieDecoder(std::move(state)));
}

MovieDecoder::MovieDecoder(std::unique_ptr<State> state) : d(std::move(state)) {}

MovieDecoder::~MovieDecoder() = default;

QString MovieDecoder::path() const { return d->path; }
double MovieDecoder::duration() const { return d->duration; }
double MovieDecoder::nominalFrameRate() const { return d->frameRate; }
const QList<double> &MovieDecoder::keyFrameTimes() const { return d->keyFrames; }
QSize MovieDecoder::maximumSize() const { return d->maximumSize; }
qint64 MovieDecoder::decodedFrameCount() const { return d->decodedCount; }
qint64 MovieDecoder::jumpCount() const { return d->jumps; }

QSize MovieDecoder::presentationSize() const
{
    return isQuarterTurn(d->rotation) ? d->storedSize.transposed() : d->storedSize;
}

QSize MovieDecoder::outputSize() const
{
    const QSize size = d->scaledStoredSize();
    return isQuarterTurn(d->rotation) ? size.transposed() : size;
}

void MovieDecoder::setMaximumSize(const QSize &size)
{
    if (size == d->maximumSize)
        return;
    d->maximumSize = size;
    // The last picture no longer has the size asked for.
    d->hasLastFrame = false;
}

double MovieDecoder::keyFrameTimeAtOrBefore(double time) const
{
    const auto after = std::upper_bound(d->keyFrames.begin(), d->keyFrames.end(), time + kTimeTolerance);
    return after == d->keyFrames.begin() ? d->keyFrames.front() : *(after - 1);
}

bool MovieDecoder::seek(double time, VideoFrame *frame, QString *error, SeekMode mode)
{
    error->clear();
    time = std::max(0.0, time);
    if (d->duration > 0)
        time = std::min(time, d->duration);
    const double key = keyFrameTimeAtOrBefore(time);
    const double target = mode == SeekMode::PreviousKeyFrame ? key : time;
    if (d->hasLastFrame && d->lastFrame.covers(target)) {
        *frame = d->lastFrame;
        return true;
    }
    // Decoding on from where it stands is cheaper than a jump when no key frame lies between.
    const bool forward = !d->decoderDrained && d->lastTime < target && key <= d->lastTime + kTimeTolerance;
    if (!forward && !d->jumpTo(target, error))
        return false;

    for (;;) {
        const int status = d->decodeOne();
        if (status == AVERROR_EOF) {
            // Past the last picture: the last one stays on screen.
            if (d->previous->buf[0])
                return d->convert(d->previous, frame, error);
            *error = QStringLiteral("%1: no picture at %2 s").arg(d->path).arg(time);
            return false;
        }
        if (status < 0) {
            *error = QStringLiteral("%1: cannot decode: %2").arg(d->path, ffmpegErrorText(status));
            return false;
        }
        const double at = d->timeOf(d->decoded);
        d->lastTime = at;
        // This picture shows at the target, or the first one after it does (a time before the first
        // picture).
        if (target + kTimeTolerance < at + d->durationOf(d->decoded)) {
            av_frame_unref(d->previous);
            return d->convert(d->decoded, frame, error);
        }
        av_frame_unref(d->previous);
        av_frame_move_ref(d->previous, d->decoded);
    }
}

bool MovieDecoder::readNextFrame(VideoFrame *frame, QString *error)
{
    error->clear();
    const int status = d->decodeOne();
    if (status == AVERROR_EOF)
        return false;
    if (status < 0) {
        *error = QStringLiteral("%1: cannot decode: %2").arg(d->path, ffmpegErrorText(status));
        return false;
    }
    d->lastTime = d->timeOf(d->decoded);
    av_frame_unref(d->previous);
    return d->convert(d->decoded, frame, error);
}

} // namespace movie
