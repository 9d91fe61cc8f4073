#pragma once
// Shows what a movie player presents: each new picture as it comes, fitted into the view or
// filling it, over black. A poster still (a Stir Shot's photo, say) can stand in for the movie
// whenever the owner chooses, and stands in by itself until the first picture arrives.
//
// The view owns its player, tells it which display paces it, and asks it for pictures no larger
// than the view shows them, so decoding costs only what is seen.

#include "player/VUMoviePlayer.h"

#include <QImage>
#include <QTransform>
#include <QWidget>

class VUMoviePlayerView : public QWidget {
    Q_OBJECT
public:
    enum class ContentMode {
        AspectFit,  // the whole picture, centred; black bars where the shapes differ
        AspectFill, // the view covered; what overflows is cut off
    };

    explicit VUMoviePlayerView(QWidget *parent = nullptr);

    VUMoviePlayer *player() const { return m_player; }

    ContentMode contentMode() const { return m_contentMode; }
    void setContentMode(ContentMode mode);

    const QImage &posterImage() const { return m_poster; }
    void setPosterImage(const QImage &image);
    bool showsPoster() const { return m_showsPoster; }
    // While true the poster is shown instead of the movie's pictures.
    void setShowsPoster(bool shows);
    // Whether the poster is on screen now (also when no picture has arrived yet).
    bool isShowingPoster() const;

    // Applied to the picture about the view's centre (a zoom, a parallax shift), after fitting.
    QTransform contentTransform() const { return m_contentTransform; }
    void setContentTransform(const QTransform &transform);

    // Where a picture of `size` is drawn before the content transform, in view coordinates.
    QRectF contentRect(const QSizeF &size) const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void _updateMaximumFrameSize();

    VUMoviePlayer *m_player;
    ContentMode m_contentMode = ContentMode::AspectFit;
    QImage m_poster;
    bool m_showsPoster = false;
    QTransform m_contentTransform;
};
