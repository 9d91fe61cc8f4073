#pragma once
// The host's movie player: decodes a movie's pictures on a background queue of its own and
// presents them on the display-synchronised frame timer, at a chosen rate, looping or not, over
// the whole movie or a range of it. It has no audio.
//
// Going to a time jumps to the key frame at or before it and decodes forward to the picture
// showing at that time. Seeks replace one another: while one is decoded, only the newest of those
// asked for meanwhile runs next, so a scrub never queues up stale work.
//
// The clock is the movie time the player is at. While playing it advances with each frame of the
// display (frame interval × rate); the picture presented is the newest decoded one whose time the
// clock has reached. A few pictures are decoded ahead of the clock; when decoding falls behind,
// late pictures are skipped (counted in droppedFrameCount), never the clock held back.
//
// Main thread only. Loading and seeks (and the picture each brings) count as pending work for
// ui::Settle; steady playback does not, so a playing screen still settles.

#include "movie/MovieDecoder.h"
#include "ui/Settle.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSize>
#include <QString>

#include <deque>
#include <functional>
#include <memory>

class QWidget;
namespace ui {
class DisplayLink;
}

class VUMoviePlayer : public QObject {
    Q_OBJECT
public:
    enum class Status { Empty, Loading, ReadyToPlay, Failed };
    enum class SeekTolerance {
        Exact,    // the picture showing at the time
        KeyFrame, // the key frame at or before it: much cheaper, for coarse scrubbing
    };
    using SeekCompletion = std::function<void(bool finished)>;

    explicit VUMoviePlayer(QObject *parent = nullptr);
    ~VUMoviePlayer() override;

    // Opens the movie on the player's queue and shows the picture at the start of the playback
    // range; statusChanged() tells when it is ready or has failed (error() says why). An empty
    // path empties the player. Rate, looping and range are kept; the range is clamped to the movie.
    void setMovie(const QString &path);
    QString moviePath() const { return m_path; }
    Status status() const { return m_status; }
    QString error() const { return m_error; }

    // What the movie is, once ready.
    double duration() const { return m_duration; }
    double nominalFrameRate() const { return m_frameRate; }
    QSize presentationSize() const { return m_presentationSize; }
    QList<double> keyFrameTimes() const { return m_keyFrameTimes; }

    // Pictures are decoded no larger than this (pixels, aspect kept; empty: the movie's size).
    // A view sets its own size here, so a large movie costs only what it shows.
    void setMaximumFrameSize(const QSize &size);
    QSize maximumFrameSize() const { return m_maximumFrameSize; }
    // The frame timer follows the display that shows this view (the primary one without).
    void setDisplayView(QWidget *view);

    // The picture presented, and the movie time it shows (null before the first).
    const QImage &currentFrame() const { return m_current.image; }
    double currentFrameTime() const { return m_current.time; }
    // The clock, in seconds of the movie.
    double currentTime() const { return m_clock; }

    // 0 is paused; any other value plays forward at that speed (negative values pause).
    double rate() const { return m_rate; }
    void setRate(double rate);
    // The rate play() plays at, 1 at first.
    double defaultRate() const { return m_defaultRate; }
    void setDefaultRate(double rate);
    // Plays at the default rate; at the end of the range, from its start again.
    void play();
    void pause();
    bool isPlaying() const { return m_rate > 0; }

    bool isLooping() const { return m_looping; }
    void setLooping(bool looping);
    // The part of the movie that plays: the clock stays inside it, playback ends (or loops) at
    // its end. end <= start (or a range beyond the movie) means up to the movie's end.
    void setPlaybackRange(double start, double end);
    double playbackRangeStart() const;
    double playbackRangeEnd() const;
    // A hint: plays [start, end] once from its start at the default rate, then pauses there and
    // emits didPlayToEnd(). The playback range stays [start, end] and looping is turned off.
    void playRange(double start, double end);

    // Moves the clock to `time` (kept inside the range) and presents the picture there. A seek
    // made before this one finished replaces it: the earlier completion is told false at once.
    void seekToTime(double time, SeekCompletion completion = {});
    void seekToTime(double time, SeekTolerance tolerance, SeekCompletion completion = {});
    bool isSeeking() const { return m_seekPending; }

    // What playback cost: pictures presented, and pictures decoded too late to be shown.
    qint64 presentedFrameCount() const { return m_presentedCount; }
    qint64 droppedFrameCount() const { return m_droppedCount; }
    // Pictures decoded ahead of the clock, waiting to be presented, and pictures asked of the
    // decoder that have not arrived yet.
    int bufferedFrameCount() const { return int(m_buffer.size()); }
    int framesBeingDecoded() const { return m_framesInFlight; }

Q_SIGNALS:
    void statusChanged(VUMoviePlayer::Status status);
    // A new picture is presented (after a seek, while playing, or once loaded).
    void currentFrameChanged();
    void rateChanged(double rate);
    // The clock reached the end of the range while playing without looping; the player paused.
    void didPlayToEnd();
    // The clock moved: every frame while playing, and at each seek.
    void currentTimeChanged(double time);

private:
    struct Pipeline;
    // A decoded picture with the pass over a looping range it belongs to, so pictures of the next
    // pass sort after those of this one.
    struct Buffered {
        movie::VideoFrame frame;
        qint64 pass = 0;
    };
    struct Seek {
        double time;
        SeekTolerance tolerance;
        SeekCompletion completion;
    };

    void _cancelSeeks();
    void _startSeek(Seek seek);
    void _runSeek(Seek seek);
    void _didLoad(quint64 movie, const QString &error, double duration, double frameRate, QSize size,
                  QList<double> keyFrames);
    void _didSeek(quint64 generation, const movie::VideoFrame &frame, const QString &error);
    void _didDecode(quint64 generation, Buffered picture);
    void _didReachEnd(quint64 generation);
    void _requestFrames();
    void _restartProduction();
    void _tick(double timestamp);
    void _present(const movie::VideoFrame &frame);
    void _setStatus(Status status, const QString &error = {});
    void _updateLink();
    void _endPlayback();
    quint64 _newGeneration();

    std::shared_ptr<Pipeline> m_pipeline;
    quint64 m_generation = 0; // raised by every seek: decoding for older ones is dropped
    quint64 m_movie = 0;      // raised by every new movie
    QString m_path;
    Status m_status = Status::Empty;
    QString m_error;
    double m_duration = 0;
    double m_frameRate = 0;
    QSize m_presentationSize;
    QList<double> m_keyFrameTimes;
    QSize m_maximumFrameSize;

    double m_rate = 0;
    double m_defaultRate = 1;
    bool m_looping = false;
    double m_rangeStart = 0;
    double m_rangeEnd = 0; // <= start: to the movie's end

    double m_clock = 0;
    qint64 m_pass = 0;
    double m_lastTimestamp = 0;
    movie::VideoFrame m_current;
    std::deque<Buffered> m_buffer;
    int m_framesInFlight = 0;
    bool m_producerEnded = false;
    bool m_seekPending = false;
    bool m_seekRunning = false;
    quint64 m_runningGeneration = 0;
    std::unique_ptr<Seek> m_nextSeek;
    SeekCompletion m_runningCompletion;
    ui::PendingWork m_pending;
    qint64 m_presentedCount = 0;
    qint64 m_droppedCount = 0;

    ui::DisplayLink *m_link = nullptr;
    QPointer<QWidget> m_displayView;
};
