#pragma once
// Decodes the pictures of a movie's video track (FFmpeg's libavformat, libavcodec and swscale):
// one after another in presentation order, or the one showing at a given time.
//
// Going to a time jumps to the key frame at or before it and decodes forward from there,
// converting only the picture that is wanted; when the time lies ahead of the last picture and no
// key frame stands between them, it decodes forward without jumping, so a scrub that creeps
// forward costs a frame or two per step. Pictures come out upright (the track's display transform
// applied), in QImage::Format_RGB32, scaled to fit the maximum size when one is set.
//
// A decoder is not thread-safe: use it from one thread, or one serial queue, at a time. Images it
// returns are the caller's; the decoder reuses their memory once the caller has let them go.

#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include <memory>

namespace movie {

struct VideoFrame {
    QImage image;
    double time = 0;     // presentation time, seconds from the movie's start
    double duration = 0; // until the next picture
    bool isKeyFrame = false;

    // Times from different computations of one instant (i / fps against pts × time base) may
    // differ in their last bits; a microsecond is far below any frame interval.
    static constexpr double kTimeTolerance = 1e-6;

    // Whether this picture is the one on screen at `t`.
    bool covers(double t) const { return t + kTimeTolerance >= time && t + kTimeTolerance < time + duration; }
};

class MovieDecoder {
public:
    enum class SeekMode {
        Exact,             // the picture showing at the time
        PreviousKeyFrame,  // the key frame at or before it: the cheapest picture near the time
    };

    // Null, with an error naming the file, when it is missing, not a movie, or has no video track
    // that can be decoded.
    static std::unique_ptr<MovieDecoder> open(const QString &path, QString *error);
    ~MovieDecoder();
    MovieDecoder(const MovieDecoder &) = delete;
    MovieDecoder &operator=(const MovieDecoder &) = delete;

    QString path() const;
    // Seconds, from the container (or the track when the container does not say).
    double duration() const;
    // Pictures per second, as the track declares them.
    double nominalFrameRate() const;
    // The picture size as shown, after the display transform.
    QSize presentationSize() const;
    // Presentation times of the key frames, ascending (from the container's index).
    const QList<double> &keyFrameTimes() const;
    // The key frame at or before `time` (the first one when `time` precedes it).
    double keyFrameTimeAtOrBefore(double time) const;

    // Pictures are scaled down (aspect kept) to fit this size in their shown orientation; an empty
    // size gives the movie's own size. Never scaled up.
    void setMaximumSize(const QSize &size);
    QSize maximumSize() const;
    // The size pictures come out at with the current maximum size.
    QSize outputSize() const;

    // The picture showing at `time` (clamped to the movie: before the first picture gives the
    // first, past the end the last). False with an error when decoding fails.
    bool seek(double time, VideoFrame *frame, QString *error, SeekMode mode = SeekMode::Exact);
    // The picture after the last one returned (the first after opening). False at the end of the
    // track, with an empty error, or on failure with one.
    bool readNextFrame(VideoFrame *frame, QString *error);

    // Pictures decoded since opening, converted or not, and jumps made: what a request cost.
    qint64 decodedFrameCount() const;
    qint64 jumpCount() const;

private:
    struct State;
    explicit MovieDecoder(std::unique_ptr<State> state);
    std::unique_ptr<State> d;
};

} // namespace movie
