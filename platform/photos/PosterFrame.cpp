#include "PosterFrame.h"

#include <QFile>
#include <QTransform>

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/display.h>
#include <libswscale/swscale.h>
}

namespace photos::detail {

namespace {

struct FormatCloser {
    void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
};
struct CodecFreer {
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
};
struct FrameFreer {
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
};
struct PacketFreer {
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

QString averror(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

// Degrees the picture is turned on display, from the track's display matrix.
double displayRotation(const AVStream *stream)
{
    size_t size = 0;
    const uint8_t *matrix = av_stream_get_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    return matrix && size >= 9 * sizeof(int32_t) ? -av_display_rotation_get(reinterpret_cast<const int32_t *>(matrix)) : 0.0;
}

} // namespace

QImage decodePosterFrame(const QString &path, const QSize &maximumSize, QString *error)
{
    AVFormatContext *rawFormat = nullptr;
    int status = avformat_open_input(&rawFormat, QFile::encodeName(path).constData(), nullptr, nullptr);
    if (status < 0) {
        *error = QStringLiteral("%1: cannot open movie: %2").arg(path, averror(status));
        return {};
    }
    std::unique_ptr<AVFormatContext, FormatCloser> format(rawFormat);
    if ((status = avformat_find_stream_info(format.get(), nullptr)) < 0
        || (status = av_find_best_stream(format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0)) < 0) {
        *error = QStringLiteral("%1: no video track: %2").arg(path, averror(status));
        return {};
    }
    const AVStream *stream = format->streams[status];
    const AVCodec *codec = avcodec_find_decoder(stream->codecpar->codec_id);
    std::unique_ptr<AVCodecContext, CodecFreer> decoder(avcodec_alloc_context3(codec));
    if (!codec || !decoder || avcodec_parameters_to_context(decoder.get(), stream->codecpar) < 0
        || avcodec_open2(decoder.get(), codec, nullptr) < 0) {
        *error = QStringLiteral("%1: no decoder for its video").arg(path);
        return {};
    }
    std::unique_ptr<AVPacket, PacketFreer> packet(av_packet_alloc());
    std::unique_ptr<AVFrame, FrameFreer> frame(av_frame_alloc());
    bool decoded = false;
    while (!decoded && av_read_frame(format.get(), packet.get()) >= 0) {
        if (packet->stream_index == stream->index && avcodec_send_packet(decoder.get(), packet.get()) >= 0)
            decoded = avcodec_receive_frame(decoder.get(), frame.get()) >= 0;
        av_packet_unref(packet.get());
    }
    if (!decoded && avcodec_send_packet(decoder.get(), nullptr) >= 0)
        decoded = avcodec_receive_frame(decoder.get(), frame.get()) >= 0;
    if (!decoded) {
        *error = QStringLiteral("%1: no picture could be decoded").arg(path);
        return {};
    }

    const double rotation = displayRotation(stream);
    const bool quarter = qRound(std::abs(rotation) / 90.0) % 2 == 1;
    QSize size(frame->width, frame->height);
    if (!maximumSize.isEmpty()) {
        const QSize bound = quarter ? maximumSize.transposed() : maximumSize;
        if (size.width() > bound.width() || size.height() > bound.height())
            size = size.scaled(bound, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    }
    QImage image(size, QImage::Format_RGB32);
    SwsContext *scaler = sws_getContext(frame->width, frame->height, AVPixelFormat(frame->format), size.width(),
                                        size.height(), AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr, nullptr, nullptr);
    if (!scaler) {
        *error = QStringLiteral("%1: cannot convert its pictures").arg(path);
        return {};
    }
    uint8_t *planes[1] = {image.bits()};
    const int strides[1] = {int(image.bytesPerLine())};
    sws_scale(scaler, frame->data, frame->linesize, 0, frame->height, planes, strides);
    sws_freeContext(scaler);
    return rotation == 0 ? image : image.transformed(QTransform().rotate(rotation));
}

} // namespace photos::detail
