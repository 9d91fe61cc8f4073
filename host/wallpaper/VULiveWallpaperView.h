#pragma once
// A Stir Shot as a wallpaper, under a clock. The still fills the view; pressing and holding plays
// the paired movie from its start, and letting go (or the movie's end) returns to the still. The
// picture follows the pointer a little, the other way, as if it lay deeper than the glass: the
// motion depth is how far it may move, in points, and the picture is enlarged just enough that
// its edges never show.
//
// The parallax eases towards the pointer on the display's frame timer and rests when it is there.

#include "player/VUMoviePlayerView.h"

#include <QDateTime>
#include <QImage>
#include <QPointF>
#include <QWidget>

class QLabel;
class QTimer;
namespace ui {
class DisplayLink;
}

class VULiveWallpaperView : public QWidget {
    Q_OBJECT
public:
    // Seconds for the parallax to cover about two thirds of the way to the pointer.
    static constexpr double kParallaxTimeConstant = 0.12;

    explicit VULiveWallpaperView(QWidget *parent = nullptr);

    // The still, and the movie that plays on a press (none: pressing does nothing).
    void setStirShot(const QImage &still, const QString &moviePath);
    VUMoviePlayerView *playerView() const { return m_playerView; }
    bool isPlayingMovie() const { return m_playing; }

    double motionDepth() const { return m_depth; }
    void setMotionDepth(double points);
    // Where the picture stands now, and where the pointer asks it to go, in points from rest.
    QPointF parallaxOffset() const { return m_offset; }
    QPointF parallaxTarget() const { return m_target; }
    // The enlargement that keeps the edges hidden at the current depth.
    double parallaxScale() const;

    bool playsOnPress() const { return m_playsOnPress; }
    void setPlaysOnPress(bool plays) { m_playsOnPress = plays; }

    bool isClockVisible() const;
    void setClockVisible(bool visible);
    // The time the clock shows: live when invalid (the default), else this one for good.
    void setClockTime(const QDateTime &time);
    QString clockText() const;
    QString dateText() const;

Q_SIGNALS:
    void movieDidStart();
    void movieDidEnd();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void _startMovie();
    void _returnToStill();
    void _aimAt(QPointF position);
    void _setTarget(QPointF target);
    void _tick(double timestamp);
    void _applyTransform();
    void _updateClock();

    VUMoviePlayerView *m_playerView;
    QWidget *m_clock;
    QLabel *m_time;
    QLabel *m_date;
    QTimer *m_minuteTimer;
    ui::DisplayLink *m_link;
    QDateTime m_fixedTime;
    bool m_hasMovie = false;
    bool m_playing = false;
    bool m_playsOnPress = true;
    double m_depth = 20;
    QPointF m_pointerShare; // where the pointer is, from -1 to 1 across the view
    QPointF m_offset;
    QPointF m_target;
    double m_lastTimestamp = -1;
};
