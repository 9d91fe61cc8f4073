#pragma once
// Small pictures of a movie at chosen times, for filmstrips. They are decoded on a queue of the
// generator's own, in the order asked (ascending times decode forward, which is cheapest), and
// each is handed to the main thread as soon as it is made. Cancelling stops the work between two
// pictures and delivers nothing more. Requests count as pending work for ui::Settle until their
// last picture is delivered or they are cancelled.

#include "player/VUMoviePlayer.h"

#include "ui/Settle.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QSize>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

class VUMovieThumbnailGenerator : public QObject {
    Q_OBJECT
public:
    struct Thumbnail {
        double requestedTime = 0;
        double actualTime = 0; // the time of the picture found
        QImage image;          // null with an error when the movie cannot be read
        QString error;
    };
    using Handler = std::function<void(const Thumbnail &thumbnail)>;

    explicit VUMovieThumbnailGenerator(const QString &moviePath, QObject *parent = nullptr);
    ~VUMovieThumbnailGenerator() override;

    QString moviePath() const { return m_path; }
    // Pixels, aspect kept; applies to requests made afterwards. 160 x 160 at first.
    QSize maximumSize() const { return m_maximumSize; }
    void setMaximumSize(const QSize &size) { m_maximumSize = size; }
    // Exact pictures, or the key frame before each time (much faster on long groups of pictures).
    VUMoviePlayer::SeekTolerance tolerance() const { return m_tolerance; }
    void setTolerance(VUMoviePlayer::SeekTolerance tolerance) { m_tolerance = tolerance; }

    // The handler runs on the main thread once per time, in order, unless cancelled first.
    void generateThumbnails(const QList<double> &times, Handler handler);
    void cancelAllRequests();
    // Requests whose pictures are not all delivered yet.
    int pendingRequestCount() const { return int(m_pending.size()); }

private:
    struct State;
    void _requestDidEnd(quint64 request);

    QString m_path;
    QSize m_maximumSize{160, 160};
    VUMoviePlayer::SeekTolerance m_tolerance = VUMoviePlayer::SeekTolerance::Exact;
    std::shared_ptr<State> m_state;
    quint64 m_nextRequest = 0;
    std::vector<std::pair<quint64, ui::PendingWork>> m_pending;
};
