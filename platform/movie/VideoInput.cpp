#include "VideoInput.h"

#include "FFmpegError.h"
#include "PixelBuffer.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

#include <libyuv/convert_from_argb.h>

namespace movie {
namespace {

bool failed(int code, const char *what, QString *error)
{
    if (code >= 0)
        return false;
    if (error)
        *error = QStringLiteral("%1: %2").arg(QLatin1String(what), ffmpegErrorText(code));
    return true;
}

// 4:2:0 pictures have whole chroma samples only at even sizes, and the stream's cropping counts
// in chroma samples: an odd side takes a format whose chroma is full along it, so the stream
// holds exactly the size asked for.
AVPixelFormat pixelFormatForSize(int width, int height)
{
    if (width % 2)
        return AV_PIX_FMT_YUV444P;
    if (height % 2)
        return AV_PIX_FMT_YUV422P;
    return AV_PIX_FMT_YUV420P;
}

} // namespace

VideoInput::VideoInput(VideoOutputSettings settings) : m_settings(std::move(settings)) {}

VideoInput::~VideoInput()
{
    avcodec_free_context(&m_codec);
    sws_freeContext(m_scaler);
    av_frame_free(&m_frame);
    av_packet_free(&m_packet);
}

bool VideoInput::open(qint32 timescale, bool globalHeader, QString *error)
{
    if (m_settings.codec != kVideoCodecH264) {
        *error = QStringLiteral("unsupported video codec \"%1\"").arg(m_settings.codec);
        return false;
    }
    const AVCodec *encoder = avcodec_find_encoder_by_name("libx264");
    if (!encoder) {
        *error = QStringLiteral("the libx264 encoder is not available");
        return false;
    }
    m_codec = avcodec_alloc_context3(encoder);
    m_codec->width = m_settings.width;
    m_codec->height = m_settings.height;
    m_codec->time_base = AVRational{1, timescale};
    m_codec->framerate = AVRational{timescale, 1};
    m_codec->pix_fmt = pixelFormatForSize(m_settings.width, m_settings.height);
    // swscale converts with BT.601 coefficients into limited range; say so in the stream.
    m_codec->colorspace = AVCOL_SPC_SMPTE170M;
    m_codec->color_range = AVCOL_RANGE_MPEG;
    if (globalHeader)
        m_codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    if (m_settings.maxKeyFrameInterval > 0)
        m_codec->gop_size = m_settings.maxKeyFrameInterval;
    av_opt_set(m_codec->priv_data, "preset", kX264Preset, 0);
    if (failed(avcodec_open2(m_codec, encoder, nullptr), "cannot open the H.264 encoder", error))
        return false;

    m_frame = av_frame_alloc();
    m_frame->format = m_codec->pix_fmt;
    m_frame->width = m_codec->width;
    m_frame->height = m_codec->height;
    m_packet = av_packet_alloc();
    return !failed(av_frame_get_buffer(m_frame, 0), "cannot allocate a video frame", error);
}

bool VideoInput::encode(const PixelBuffer *buffer, MediaTime time, const PacketSink &sink, QString *error)
{
    if (!buffer) {
        if (failed(avcodec_send_frame(m_codec, nullptr), "cannot finish encoding", error))
            return false;
        return _drain(sink, error);
    }
    // The encoder may still hold the previous frame's pictures; never write over them.
    if (failed(av_frame_make_writable(m_frame), "cannot allocate a video frame", error))
        return false;
    if (buffer->width() == m_codec->width && buffer->height() == m_codec->height) {
        // libyuv's SIMD conversion (BT.601, limited range like swscale's) is several times faster
        // than swscale's general path, which then only serves frames that need scaling.
        const auto convert = m_codec->pix_fmt == AV_PIX_FMT_YUV420P   ? libyuv::ARGBToI420
                             : m_codec->pix_fmt == AV_PIX_FMT_YUV422P ? libyuv::ARGBToI422
                                                                      : libyuv::ARGBToI444;
        convert(buffer->baseAddress(), int(buffer->bytesPerRow()), m_frame->data[0], m_frame->linesize[0],
                m_frame->data[1], m_frame->linesize[1], m_frame->data[2], m_frame->linesize[2], buffer->width(), buffer->height());
    } else if (!_scale(*buffer, error)) {
        return false;
    }
    m_frame->pts = av_rescale_q(time.value, AVRational{1, time.timescale}, m_codec->time_base);
    if (failed(avcodec_send_frame(m_codec, m_frame), "cannot encode a frame", error))
        return false;
    return _drain(sink, error);
}

bool VideoInput::_scale(const PixelBuffer &buffer, QString *error)
{
    m_scaler = sws_getCachedContext(m_scaler, buffer.width(), buffer.height(), AV_PIX_FMT_0RGB32,
                                    m_codec->width, m_codec->height, m_codec->pix_fmt, SWS_BILINEAR,
                                    nullptr, nullptr, nullptr);
    if (!m_scaler) {
        *error = QStringLiteral("cannot convert %1x%2 pixels to %3x%4")
                     .arg(buffer.width()).arg(buffer.height()).arg(m_codec->width).arg(m_codec->height);
        return false;
    }
    const uint8_t *source[4] = {buffer.baseAddress(), nullptr, nullptr, nullptr};
    const int sourceStride[4] = {int(buffer.bytesPerRow()), 0, 0, 0};
    sws_scale(m_scaler, source, sourceStride, 0, buffer.height(), m_frame->data, m_frame->linesize);
    return true;
}

bool VideoInput::_drain(const PacketSink &sink, QString *error)
{
    for (;;) {
        const int received = avcodec_receive_packet(m_codec, m_packet);
        if (received == AVERROR(EAGAIN) || received == AVERROR_EOF)
            return true;
        if (failed(received, "cannot encode a frame", error))
            return false;
        const bool written = sink(m_packet, error);
        av_packet_unref(m_packet);
        if (!written)
            return false;
    }
}

} // namespace movie
