#include "wallpaper/VULiveWallpaperView.h"

#include "ui/DisplayLink.h"

#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

QLabel *clockLabel(double pointSize, QFont::Weight weight)
{
    auto *label = new QLabel;
    QFont font = label->font();
    font.setPointSizeF(pointSize);
    font.setWeight(weight);
    label->setFont(font);
    label->setAlignment(Qt::AlignHCenter);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(palette);
    // The clock reads over any picture.
    auto *shadow = new QGraphicsDropShadowEffect(label);
    shadow->setBlurRadius(12);
    shadow->setOffset(0, 1);
    shadow->setColor(QColor(0, 0, 0, 140));
    label->setGraphicsEffect(shadow);
    return label;
}

} // namespace

VULiveWallpaperView::VULiveWallpaperView(QWidget *parent)
    : QWidget(parent)
    , m_playerView(new VUMoviePlayerView(this))
    , m_clock(new QWidget(this))
    , m_time(clockLabel(64, QFont::DemiBold))
    , m_date(clockLabel(17, QFont::Medium))
    , m_minuteTimer(new QTimer(this))
    , m_link(new ui::DisplayLink([this](ui::DisplayLink &link) { _tick(link.timestamp()); }, this))
{
    setMouseTracking(true);
    m_playerView->setContentMode(VUMoviePlayerView::ContentMode::AspectFill);
    m_playerView->setShowsPoster(true);
    m_playerView->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_clock->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *clockLayout = new QVBoxLayout(m_clock);
    clockLayout->setContentsMargins(0, 48, 0, 0);
    clockLayout->setSpacing(0);
    clockLayout->addWidget(m_date);
    clockLayout->addWidget(m_time);
    clockLayout->addStretch(1);

    VUMoviePlayer *player = m_playerView->player();
    connect(player, &VUMoviePlayer::didPlayToEnd, this, &VULiveWallpaperView::_returnToStill);
    // The still stays until the movie has a picture to show in its place.
    connect(player, &VUMoviePlayer::currentFrameChanged, this, [this] {
        if (m_playing)
            m_playerView->setShowsPoster(false);
    });
    connect(m_minuteTimer, &QTimer::timeout, this, &VULiveWallpaperView::_updateClock);
    m_link->setPaused(true);
    m_link->schedule(this);
    _updateClock();
}

void VULiveWallpaperView::setStirShot(const QImage &still, const QString &moviePath)
{
    _returnToStill();
    m_playerView->setPosterImage(still);
    m_hasMovie = !moviePath.isEmpty();
    m_playerView->player()->setMovie(moviePath);
}

void VULiveWallpaperView::setMotionDepth(double points)
{
    m_depth = std::max(0.0, points);
    _setTarget(-m_pointerShare * m_depth);
    _applyTransform();
}

double VULiveWallpaperView::parallaxScale() const
{
    const double side = std::min(width(), height());
    return side > 0 ? 1 + 2 * m_depth / side : 1;
}

bool VULiveWallpaperView::isClockVisible() const
{
    return !m_clock->isHidden();
}

void VULiveWallpaperView::setClockVisible(bool visible)
{
    m_clock->setVisible(visible);
}

void VULiveWallpaperView::setClockTime(const QDateTime &time)
{
    m_fixedTime = time;
    _updateClock();
}

QString VULiveWallpaperView::clockText() const
{
    return m_time->text();
}

QString VULiveWallpaperView::dateText() const
{
    return m_date->text();
}

void VULiveWallpaperView::_updateClock()
{
    const QDateTime now = m_fixedTime.isValid() ? m_fixedTime : QDateTime::currentDateTime();
    const QLocale locale;
    m_time->setText(locale.toString(now.time(), QStringLiteral("H:mm")));
    m_date->setText(locale.toString(now.date(), QStringLiteral("dddd d MMMM")));
    // The next change is at the top of the next minute.
    if (m_fixedTime.isValid())
        m_minuteTimer->stop();
    else
        m_minuteTimer->start(int(60000 - now.time().msecsSinceStartOfDay() % 60000));
}

void VULiveWallpaperView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_playerView->setGeometry(rect());
    m_clock->setGeometry(rect());
    _applyTransform();
}

void VULiveWallpaperView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_playsOnPress && m_hasMovie)
        _startMovie();
    _aimAt(event->position());
}

void VULiveWallpaperView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        _returnToStill();
}

void VULiveWallpaperView::mouseMoveEvent(QMouseEvent *event)
{
    _aimAt(event->position());
}

void VULiveWallpaperView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    _aimAt(QRectF(rect()).center());
}

void VULiveWallpaperView::_startMovie()
{
    if (m_playing)
        return;
    m_playing = true;
    VUMoviePlayer *player = m_playerView->player();
    player->setLooping(false);
    player->seekToTime(0);
    player->play();
    Q_EMIT movieDidStart();
}

void VULiveWallpaperView::_returnToStill()
{
    if (!m_playing)
        return;
    m_playing = false;
    m_playerView->player()->pause();
    m_playerView->setShowsPoster(true);
    Q_EMIT movieDidEnd();
}

void VULiveWallpaperView::_aimAt(QPointF position)
{
    const QPointF half(width() / 2.0, height() / 2.0);
    if (half.x() <= 0 || half.y() <= 0)
        return;
    // From -1 to 1 across the view; the picture moves against the pointer.
    m_pointerShare = QPointF(std::clamp((position.x() - half.x()) / half.x(), -1.0, 1.0),
                             std::clamp((position.y() - half.y()) / half.y(), -1.0, 1.0));
    _setTarget(-m_pointerShare * m_depth);
}

void VULiveWallpaperView::_setTarget(QPointF target)
{
    m_target = target;
    if (m_target != m_offset && m_link->isPaused()) {
        m_lastTimestamp = -1;
        m_link->setPaused(false);
    }
}

void VULiveWallpaperView::_tick(double timestamp)
{
    const double elapsed = m_lastTimestamp < 0 ? 1.0 / 60 : timestamp - m_lastTimestamp;
    m_lastTimestamp = timestamp;
    // An exponential approach, the same whatever the frame rate.
    const double keep = std::exp(-elapsed / kParallaxTimeConstant);
    m_offset = m_target + (m_offset - m_target) * keep;
    const QPointF gap = m_target - m_offset;
    if (std::abs(gap.x()) < 0.05 && std::abs(gap.y()) < 0.05) {
        m_offset = m_target;
        m_link->setPaused(true);
    }
    _applyTransform();
}

void VULiveWallpaperView::_applyTransform()
{
    const double scale = parallaxScale();
    m_playerView->setContentTransform(QTransform::fromScale(scale, scale) * QTransform::fromTranslate(m_offset.x(), m_offset.y()));
}
