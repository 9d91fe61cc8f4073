#include "player/VUMoviePlayerView.h"

#include <QPainter>
#include <QResizeEvent>

#include <cmath>

VUMoviePlayerView::VUMoviePlayerView(QWidget *parent)
    : QWidget(parent)
    , m_player(new VUMoviePlayer(this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_player->setDisplayView(this);
    connect(m_player, &VUMoviePlayer::currentFrameChanged, this, qOverload<>(&QWidget::update));
    connect(m_player, &VUMoviePlayer::statusChanged, this, [this] { _updateMaximumFrameSize(); });
}

void VUMoviePlayerView::setContentMode(ContentMode mode)
{
    if (mode == m_contentMode)
        return;
    m_contentMode = mode;
    _updateMaximumFrameSize();
    update();
}

void VUMoviePlayerView::setPosterImage(const QImage &image)
{
    m_poster = image;
    update();
}

void VUMoviePlayerView::setShowsPoster(bool shows)
{
    if (shows == m_showsPoster)
        return;
    m_showsPoster = shows;
    update();
}

bool VUMoviePlayerView::isShowingPoster() const
{
    return !m_poster.isNull() && (m_showsPoster || m_player->currentFrame().isNull());
}

void VUMoviePlayerView::setContentTransform(const QTransform &transform)
{
    if (transform == m_contentTransform)
        return;
    m_contentTransform = transform;
    update();
}

QRectF VUMoviePlayerView::contentRect(const QSizeF &size) const
{
    if (size.isEmpty())
        return {};
    const QSizeF shown = size.scaled(QSizeF(this->size()), m_contentMode == ContentMode::AspectFit ? Qt::KeepAspectRatio
                                                                                                    : Qt::KeepAspectRatioByExpanding);
    return QRectF(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown);
}

void VUMoviePlayerView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _updateMaximumFrameSize();
}

void VUMoviePlayerView::_updateMaximumFrameSize()
{
    const QSize movie = m_player->presentationSize();
    if (movie.isEmpty() || size().isEmpty())
        return;
    // The size the picture is drawn at, in device pixels: the whole of it when filling, too.
    const QSizeF shown = contentRect(QSizeF(movie)).size() * devicePixelRatioF();
    m_player->setMaximumFrameSize(QSize(int(std::ceil(shown.width())), int(std::ceil(shown.height()))));
}

void VUMoviePlayerView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    const bool poster = isShowingPoster();
    const QImage &image = poster ? m_poster : m_player->currentFrame();
    if (image.isNull())
        return;
    // The picture keeps the movie's own shape even while decoded smaller.
    const QSizeF natural = poster || m_player->presentationSize().isEmpty() ? QSizeF(image.size())
                                                                             : QSizeF(m_player->presentationSize());
    const QRectF target = contentRect(natural);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRect(rect());
    if (!m_contentTransform.isIdentity()) {
        const QPointF centre = QRectF(rect()).center();
        painter.setTransform(QTransform::fromTranslate(-centre.x(), -centre.y()) * m_contentTransform
                             * QTransform::fromTranslate(centre.x(), centre.y()));
    }
    painter.drawImage(target, image);
}
