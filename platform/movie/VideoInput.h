#pragma once
// The one video input of a movie writer: an H.264 encoder (libx264) fed with ARGB pixel buffers,
// and the transform players apply to the track on display.
//
// x264 runs with the "ultrafast" preset and its default quality (CRF 23): test media need encoding
// speed far more than small files, and that preset also leaves out B-frames, so packets come out
// in presentation order. Pictures are 4:2:0 but for odd sizes, which take 4:2:2 (odd height) or
// 4:4:4 (odd width) so that the stream holds exactly the size asked for.

#include "MediaTime.h"

#include <QString>
#include <QTransform>

#include <functional>

struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct SwsContext;

namespace movie {

class PixelBuffer;

inline const QString kVideoCodecH264 = QStringLiteral("h264");

// The encoder's output settings: codec, then width and height of the encoded picture, and at most
// how many pictures apart key frames stand (0: the encoder's own choice, 250 for x264).
struct VideoOutputSettings {
    QString codec;
    int width = 0;
    int height = 0;
    int maxKeyFrameInterval = 0;
};

class VideoInput {
public:
    static constexpr const char *kX264Preset = "ultrafast";

    explicit VideoInput(VideoOutputSettings settings);
    ~VideoInput();
    VideoInput(const VideoInput &) = delete;
    VideoInput &operator=(const VideoInput &) = delete;

    const VideoOutputSettings &outputSettings() const { return m_settings; }
    // (a, b, c, d, tx, ty) as in QTransform: the picture is shown turned by it; pixels stay as stored.
    QTransform transform() const { return m_transform; }
    void setTransform(const QTransform &transform) { m_transform = transform; }

    // Encoding is synchronous, so the input is ready whenever it is not finished.
    bool isReadyForMoreMediaData() const { return !m_finished; }
    void markAsFinished() { m_finished = true; }

    using PacketSink = std::function<bool(AVPacket *packet, QString *error)>;

    // Opens the encoder with presentation times counted at `timescale` ticks per second.
    bool open(qint32 timescale, bool globalHeader, QString *error);
    AVCodecContext *codecContext() const { return m_codec; }
    // Converts and encodes one buffer (scaled to the output size if it differs), handing every
    // packet that is ready to the sink. A null buffer drains the encoder.
    bool encode(const PixelBuffer *buffer, MediaTime time, const PacketSink &sink, QString *error);

private:
    bool _drain(const PacketSink &sink, QString *error);
    // Into the frame through swscale, resizing to the output size.
    bool _scale(const PixelBuffer &buffer, QString *error);

    VideoOutputSettings m_settings;
    QTransform m_transform;
    bool m_finished = false;
    AVCodecContext *m_codec = nullptr;
    SwsContext *m_scaler = nullptr;
    AVFrame *m_frame = nullptr;
    AVPacket *m_packet = nullptr;
};

} // namespace movie
