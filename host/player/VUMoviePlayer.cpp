#include "VUMoviePlayer.h"

#include "dispatch/Dispatch.h"
#include "ui/DisplayLink.h"

#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <atomic>
#include <mutex>

Q_LOGGING_CATEGORY(lcPlayer, "vistra.player")

namespace {

// Pictures decoded ahead of the clock: a sixth of a second at 30 per second, enough to ride out a
// slow picture without holding much memory.
constexpr int kFramesAhead = 5;
constexpr double kTolerance = movie::VideoFrame::kTimeTolerance;

} // namespace

// What the player's queue works on. The decoder and the pass count belong to the queue; the main
// thread only raises the generation, which tells queued work it has been overtaken.
struct VUMoviePlayer::Pipeline {
    dispatch::QueuePtr queue = dispatch::Queue::createSerial("vistra.player.decode");
    std::atomic<quint64> generation{0};
    std::atomic<quint64> movie{0};
    std::unique_ptr<movie::MovieDecoder> decoder;
    qint64 pass = 0;

    bool isCurrent(quint64 g) const { return generation.load() == g; }

    // Read by each job as it starts, so work already queued decodes at the newest size.
    void setMaximumSize(const QSize &size)
    {
        std::lock_guard lock(mutex);
        maximumSize = size;
    }
    void applyMaximumSize()
    {
        std::lock_guard lock(mutex);
        if (decoder)
            decoder->setMaximumSize(maximumSize);
    }

private:
    std::mutex mutex;
    QSize maximumSize;
};

VUMoviePlayer::VUMoviePlayer(QObject *parent)
    : QObject(parent)
    , m_pipeline(std::make_shared<Pipeline>())
{
}

VUMoviePlayer::~VUMoviePlayer()
{
    // Work still queued finds itself overtaken and does nothing; the pipeline goes with the last.
    m_pipeline->generation = ~quint64(0);
    _cancelSeeks();
}

void VUMoviePlayer::_cancelSeeks()
{
    if (m_runningCompletion)
        std::exchange(m_runningCompletion, {})(false);
    if (m_nextSeek && m_nextSeek->completion)
        m_nextSeek->completion(false);
    m_nextSeek.reset();
}

quint64 VUMoviePlayer::_newGeneration()
{
    m_pipeline->generation = ++m_generation;
    m_buffer.clear();
    m_framesInFlight = 0;
    m_producerEnded = false;
    return m_generation;
}

void VUMoviePlayer::setMovie(const QString &path)
{
    _newGeneration();
    const quint64 movie = m_pipeline->movie = ++m_movie;
    _cancelSeeks();
    m_seekRunning = m_seekPending = false;
    m_path = path;
    m_duration = m_frameRate = 0;
    m_presentationSize = {};
    m_keyFrameTimes.clear();
    m_clock = 0;
    m_pass = 0;
    m_current = {};
    Q_EMIT currentFrameChanged();
    if (path.isEmpty()) {
        m_pending.end();
        _setStatus(Status::Empty);
        return;
    }
    m_pending = ui::PendingWork(QStringLiteral("loading the movie %1").arg(QFileInfo(path).fileName()));
    _setStatus(Status::Loading);

    QPointer<VUMoviePlayer> self(this);
    m_pipeline->queue->async([pipeline = m_pipeline, self, movie, path] {
        if (pipeline->movie.load() != movie)
            return;
        QString error;
        pipeline->decoder = movie::MovieDecoder::open(path, &error);
        const movie::MovieDecoder *decoder = pipeline->decoder.get();
        dispatch::Queue::main()->async([self, movie, error, duration = decoder ? decoder->duration() : 0.0,
                                        rate = decoder ? decoder->nominalFrameRate() : 0.0,
                                        size = decoder ? decoder->presentationSize() : QSize(),
                                        keys = decoder ? decoder->keyFrameTimes() : QList<double>()] {
            if (self)
                self->_didLoad(movie, error, duration, rate, size, keys);
        });
    });
}

void VUMoviePlayer::_didLoad(quint64 movie, const QString &error, double duration, double frameRate, QSize size,
                             QList<double> keyFrames)
{
    if (movie != m_movie)
        return;
    if (!error.isEmpty()) {
        qCWarning(lcPlayer).noquote() << error;
        _cancelSeeks();
        m_seekPending = false;
        m_pending.end();
        _setStatus(Status::Failed, error);
        // Nothing will ever play: no frame timer keeps running for it.
        setRate(0);
        return;
    }
    m_duration = duration;
    m_frameRate = frameRate;
    m_presentationSize = size;
    m_keyFrameTimes = keyFrames;
    m_status = Status::ReadyToPlay;
    // A seek asked for while loading goes first; otherwise the start of the range is shown.
    std::unique_ptr<Seek> seek = std::move(m_nextSeek);
    if (!seek)
        seek = std::make_unique<Seek>(Seek{m_clock, SeekTolerance::Exact, {}});
    seek->time = m_clock = std::clamp(seek->time, playbackRangeStart(), playbackRangeEnd());
    _startSeek(std::move(*seek));
    Q_EMIT statusChanged(m_status);
}

void VUMoviePlayer::setMaximumFrameSize(const QSize &size)
{
    if (size == m_maximumFrameSize)
        return;
    m_maximumFrameSize = size;
    m_pipeline->setMaximumSize(size);
    // A still picture is decoded again at the new size; a playing one changes with the next, and
    // a seek under way brings its picture at the new size.
    if (m_status == Status::ReadyToPlay && !isPlaying() && !m_seekPending)
        _restartProduction();
}

void VUMoviePlayer::setDisplayView(QWidget *view)
{
    m_displayView = view;
    if (m_link && m_link->isScheduled())
        m_link->schedule(view);
}

void VUMoviePlayer::setRate(double rate)
{
    rate = std::max(0.0, rate);
    if (rate == m_rate)
        return;
    m_rate = rate;
    m_lastTimestamp = ui::DisplayLink::currentTime();
    _updateLink();
    _requestFrames();
    Q_EMIT rateChanged(m_rate);
}

void VUMoviePlayer::setDefaultRate(double rate)
{
    m_defaultRate = std::max(0.0, rate);
    if (isPlaying())
        setRate(m_defaultRate);
}

void VUMoviePlayer::play()
{
    if (m_status == Status::ReadyToPlay && !m_looping && m_clock >= playbackRangeEnd() - kTolerance)
        seekToTime(playbackRangeStart());
    setRate(m_defaultRate);
}

void VUMoviePlayer::pause()
{
    setRate(0);
}

void VUMoviePlayer::setLooping(bool looping)
{
    if (looping == m_looping)
        return;
    m_looping = looping;
    // Pictures decoded ahead may already have gone past the end under the old rule.
    if (!m_buffer.empty() || m_framesInFlight > 0 || m_producerEnded)
        _restartProduction();
}

void VUMoviePlayer::setPlaybackRange(double start, double end)
{
    m_rangeStart = std::max(0.0, start);
    m_rangeEnd = end;
    if (m_status == Status::ReadyToPlay)
        seekToTime(m_clock);
}

double VUMoviePlayer::playbackRangeStart() const
{
    return std::min(m_rangeStart, m_duration);
}

double VUMoviePlayer::playbackRangeEnd() const
{
    return m_rangeEnd <= m_rangeStart || m_rangeEnd > m_duration ? m_duration : m_rangeEnd;
}

void VUMoviePlayer::playRange(double start, double end)
{
    m_looping = false;
    m_rangeStart = std::max(0.0, start);
    m_rangeEnd = end;
    seekToTime(start);
    setRate(m_defaultRate);
}

void VUMoviePlayer::seekToTime(double time, SeekCompletion completion)
{
    seekToTime(time, SeekTolerance::Exact, std::move(completion));
}

void VUMoviePlayer::seekToTime(double time, SeekTolerance tolerance, SeekCompletion completion)
{
    if (m_status == Status::Empty || m_status == Status::Failed) {
        if (completion)
            completion(false);
        return;
    }
    if (m_status == Status::ReadyToPlay)
        time = std::clamp(time, playbackRangeStart(), playbackRangeEnd());
    m_clock = std::max(0.0, time);
    m_pass = 0;
    m_lastTimestamp = ui::DisplayLink::currentTime();
    Q_EMIT currentTimeChanged(m_clock);
    _startSeek(Seek{m_clock, tolerance, std::move(completion)});
}

void VUMoviePlayer::_startSeek(Seek seek)
{
    _newGeneration();
    m_seekPending = true;
    if (!m_pending.isActive())
        m_pending = ui::PendingWork(QStringLiteral("the picture at %1 s of %2").arg(seek.time).arg(QFileInfo(m_path).fileName()));
    _cancelSeeks();
    if (m_seekRunning || m_status != Status::ReadyToPlay)
        m_nextSeek = std::make_unique<Seek>(std::move(seek));
    else
        _runSeek(std::move(seek));
}

void VUMoviePlayer::_runSeek(Seek seek)
{
    m_seekRunning = true;
    m_runningCompletion = std::move(seek.completion);
    QPointer<VUMoviePlayer> self(this);
    const quint64 generation = m_runningGeneration = m_generation;
    m_pipeline->queue->async([pipeline = m_pipeline, self, generation, time = seek.time, tolerance = seek.tolerance] {
        movie::VideoFrame frame;
        QString error;
        // A seek overtaken before it started decodes nothing; the newer one runs next.
        if (pipeline->isCurrent(generation) && pipeline->decoder) {
            pipeline->applyMaximumSize();
            pipeline->pass = 0;
            pipeline->decoder->seek(time, &frame, &error,
                                    tolerance == SeekTolerance::KeyFrame ? movie::MovieDecoder::SeekMode::PreviousKeyFrame
                                                                         : movie::MovieDecoder::SeekMode::Exact);
        }
        dispatch::Queue::main()->async([self, generation, frame, error] {
            if (self)
                self->_didSeek(generation, frame, error);
        });
    });
}

void VUMoviePlayer::_didSeek(quint64 generation, const movie::VideoFrame &frame, const QString &error)
{
    if (!m_seekRunning || generation != m_runningGeneration)
        return; // a seek of a movie since replaced
    m_seekRunning = false;
    if (!error.isEmpty())
        qCWarning(lcPlayer).noquote() << error;
    // Even an overtaken seek's picture is shown: while scrubbing, it is the nearest there is yet.
    if (!frame.image.isNull())
        _present(frame);
    if (generation != m_generation) {
        if (m_nextSeek) {
            std::unique_ptr<Seek> next = std::move(m_nextSeek);
            _runSeek(std::move(*next));
        }
        return;
    }
    m_seekPending = false;
    m_pending.end();
    if (m_runningCompletion)
        std::exchange(m_runningCompletion, {})(error.isEmpty());
    _requestFrames();
}

void VUMoviePlayer::_restartProduction()
{
    if (m_status == Status::ReadyToPlay)
        _startSeek(Seek{m_clock, SeekTolerance::Exact, {}});
}

void VUMoviePlayer::_requestFrames()
{
    if (m_status != Status::ReadyToPlay || m_seekPending || m_producerEnded || !isPlaying())
        return;
    const int wanted = kFramesAhead - int(m_buffer.size()) - m_framesInFlight;
    if (wanted <= 0)
        return;
    m_framesInFlight += wanted;
    QPointer<VUMoviePlayer> self(this);
    const quint64 generation = m_generation;
    const double start = playbackRangeStart(), end = playbackRangeEnd();
    m_pipeline->queue->async([pipeline = m_pipeline, self, generation, wanted, start, end, looping = m_looping] {
        auto post = [&](auto member, auto... arguments) {
            dispatch::Queue::main()->async([self, member, generation, arguments...] {
                if (self)
                    (self.data()->*member)(generation, arguments...);
            });
        };
        pipeline->applyMaximumSize();
        for (int i = 0; i < wanted && pipeline->isCurrent(generation); ++i) {
            movie::VideoFrame frame;
            QString error;
            bool decoded = pipeline->decoder->readNextFrame(&frame, &error);
            if (!decoded || frame.time + kTolerance >= end) {
                if (!error.isEmpty())
                    qCWarning(lcPlayer).noquote() << error;
                if (!looping || end <= start) {
                    post(&VUMoviePlayer::_didReachEnd);
                    return;
                }
                ++pipeline->pass;
                decoded = pipeline->decoder->seek(start, &frame, &error);
                if (!decoded) {
                    qCWarning(lcPlayer).noquote() << error;
                    post(&VUMoviePlayer::_didReachEnd);
                    return;
                }
            }
            post(&VUMoviePlayer::_didDecode, Buffered{frame, pipeline->pass});
        }
    });
}

void VUMoviePlayer::_didDecode(quint64 generation, Buffered picture)
{
    if (generation != m_generation)
        return;
    --m_framesInFlight;
    m_buffer.push_back(std::move(picture));
}

void VUMoviePlayer::_didReachEnd(quint64 generation)
{
    if (generation != m_generation)
        return;
    m_framesInFlight = 0;
    m_producerEnded = true;
}

void VUMoviePlayer::_updateLink()
{
    if (!isPlaying()) {
        if (m_link)
            m_link->setPaused(true);
        return;
    }
    if (!m_link)
        m_link = new ui::DisplayLink([this](ui::DisplayLink &link) { _tick(link.timestamp()); }, this);
    if (!m_link->isScheduled())
        m_link->schedule(m_displayView);
    m_link->setPaused(false);
}

void VUMoviePlayer::_tick(double timestamp)
{
    if (!isPlaying() || m_status != Status::ReadyToPlay)
        return;
    // A frame stamped on its refresh grid may precede the moment playback started.
    const double elapsed = std::max(0.0, timestamp - m_lastTimestamp);
    m_lastTimestamp = timestamp;
    // The clock waits for the picture a seek brings.
    if (m_seekPending)
        return;
    const double start = playbackRangeStart(), end = playbackRangeEnd();
    m_clock += elapsed * m_rate;
    bool ended = false;
    if (m_clock + kTolerance >= end) {
        if (m_looping && end > start) {
            while (m_clock + kTolerance >= end) {
                m_clock -= end - start;
                ++m_pass;
            }
        } else {
            m_clock = end;
            ended = true;
        }
    }

    // The newest picture the clock has reached; older ones it passed over were decoded too late.
    const Buffered *newest = nullptr;
    qint64 passed = 0;
    for (const Buffered &picture : m_buffer) {
        const bool reached = picture.pass < m_pass || (picture.pass == m_pass && picture.frame.time <= m_clock + kTolerance);
        if (!reached && !ended)
            break;
        newest = &picture;
        ++passed;
    }
    if (newest) {
        m_droppedCount += passed - 1;
        _present(newest->frame);
        m_buffer.erase(m_buffer.begin(), m_buffer.begin() + passed);
    }
    Q_EMIT currentTimeChanged(m_clock);
    if (ended)
        _endPlayback();
    else
        _requestFrames();
}

void VUMoviePlayer::_endPlayback()
{
    m_rate = 0;
    _updateLink();
    Q_EMIT rateChanged(0);
    Q_EMIT didPlayToEnd();
}

void VUMoviePlayer::_present(const movie::VideoFrame &frame)
{
    m_current = frame;
    ++m_presentedCount;
    Q_EMIT currentFrameChanged();
}

void VUMoviePlayer::_setStatus(Status status, const QString &error)
{
    m_error = error;
    if (status == m_status)
        return;
    m_status = status;
    Q_EMIT statusChanged(status);
}
