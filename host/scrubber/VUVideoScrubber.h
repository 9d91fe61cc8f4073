#pragma once
// A filmstrip scrubber for a movie player: pictures of the movie side by side across the strip,
// decoded on a background queue whenever the strip is laid out anew, and a playhead at the
// player's clock. Pressing the strip and dragging moves the player to the time under the finger,
// showing the picture there as it comes; a player that was playing pauses for the drag and plays
// on from where it was released.
//
// Seeks follow the player's rules: the newest overtakes those not yet decoded, so a fast drag
// shows the pictures the decoder can keep up with and always ends on the one under the finger.

#include "player/VUMoviePlayer.h"

#include <QImage>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class VUMovieThumbnailGenerator;

class VUVideoScrubber : public QWidget {
    Q_OBJECT
public:
    explicit VUVideoScrubber(VUMoviePlayer *player, QWidget *parent = nullptr);
    ~VUVideoScrubber() override;

    VUMoviePlayer *player() const { return m_player; }
    // Exact pictures while scrubbing, or the key frame before the finger (cheaper on movies with
    // few key frames). The filmstrip always shows exact pictures.
    VUMoviePlayer::SeekTolerance seekTolerance() const { return m_tolerance; }
    void setSeekTolerance(VUMoviePlayer::SeekTolerance tolerance) { m_tolerance = tolerance; }
    // Marks above the strip where the movie's key frames are.
    bool showsKeyFrames() const { return m_showsKeyFrames; }
    void setShowsKeyFrames(bool shows);

    // Where the filmstrip is drawn, and the mapping between its x positions and movie times.
    QRectF stripRect() const;
    double timeAtPosition(double x) const;
    double positionForTime(double time) const;

    // The times of the strip's pictures, left to right, and how many have arrived.
    QList<double> thumbnailTimes() const;
    int loadedThumbnailCount() const;
    bool isScrubbing() const { return m_scrubbing; }

    QSize sizeHint() const override { return QSize(390, 84); }

Q_SIGNALS:
    void scrubbingBegan();
    void scrubbedToTime(double time);
    void scrubbingEnded();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    struct Cell {
        double time;
        QRectF rect;
        QImage image;
    };
    void _rebuildStrip();
    void _scrub(double x);

    QPointer<VUMoviePlayer> m_player;
    std::unique_ptr<VUMovieThumbnailGenerator> m_generator;
    std::vector<Cell> m_cells;
    size_t m_arrived = 0;
    VUMoviePlayer::SeekTolerance m_tolerance = VUMoviePlayer::SeekTolerance::Exact;
    bool m_showsKeyFrames = false;
    bool m_scrubbing = false;
    bool m_resumeAfterScrub = false;
};
