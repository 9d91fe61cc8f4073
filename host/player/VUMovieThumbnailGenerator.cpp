#include "player/VUMovieThumbnailGenerator.h"

#include "dispatch/Dispatch.h"

#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <atomic>

// The queue's side: the decoder, opened on first use and kept for later requests, and the
// cancellation count the main thread raises.
struct VUMovieThumbnailGenerator::State {
    dispatch::QueuePtr queue = dispatch::Queue::createSerial("vistra.player.thumbnails");
    std::atomic<quint64> cancellations{0};
    std::unique_ptr<movie::MovieDecoder> decoder;
    QString openError;
};

VUMovieThumbnailGenerator::VUMovieThumbnailGenerator(const QString &moviePath, QObject *parent)
    : QObject(parent)
    , m_path(moviePath)
    , m_state(std::make_shared<State>())
{
}

VUMovieThumbnailGenerator::~VUMovieThumbnailGenerator()
{
    cancelAllRequests();
}

void VUMovieThumbnailGenerator::generateThumbnails(const QList<double> &times, Handler handler)
{
    const quint64 request = ++m_nextRequest;
    m_pending.emplace_back(request, ui::PendingWork(QStringLiteral("%1 pictures of %2").arg(times.size()).arg(QFileInfo(m_path).fileName())));
    QPointer<VUMovieThumbnailGenerator> self(this);
    const quint64 cancellations = m_state->cancellations;
    const auto mode = m_tolerance == VUMoviePlayer::SeekTolerance::KeyFrame ? movie::MovieDecoder::SeekMode::PreviousKeyFrame
                                                                             : movie::MovieDecoder::SeekMode::Exact;
    m_state->queue->async([state = m_state, self, request, cancellations, times, handler = std::move(handler), mode,
                           path = m_path, size = m_maximumSize] {
        const auto wanted = [&] { return state->cancellations.load() == cancellations; };
        if (wanted() && !state->decoder && state->openError.isEmpty())
            state->decoder = movie::MovieDecoder::open(path, &state->openError);
        if (state->decoder)
            state->decoder->setMaximumSize(size);
        for (double time : times) {
            if (!wanted())
                break;
            Thumbnail thumbnail{time, time, {}, state->openError};
            movie::VideoFrame frame;
            if (state->decoder && state->decoder->seek(time, &frame, &thumbnail.error, mode)) {
                thumbnail.image = frame.image;
                thumbnail.actualTime = frame.time;
            }
            dispatch::Queue::main()->async([state, self, cancellations, handler, thumbnail] {
                if (self && state->cancellations.load() == cancellations)
                    handler(thumbnail);
            });
        }
        dispatch::Queue::main()->async([self, request] {
            if (self)
                self->_requestDidEnd(request);
        });
    });
}

void VUMovieThumbnailGenerator::cancelAllRequests()
{
    ++m_state->cancellations;
    m_pending.clear();
}

void VUMovieThumbnailGenerator::_requestDidEnd(quint64 request)
{
    m_pending.erase(std::remove_if(m_pending.begin(), m_pending.end(), [request](const auto &entry) { return entry.first == request; }),
                    m_pending.end());
}
