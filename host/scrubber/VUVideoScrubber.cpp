#include "scrubber/VUVideoScrubber.h"

#include "player/VUMovieThumbnailGenerator.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMargin = 16;      // the strip's inset from the sides, so the playhead fits
constexpr double kKeyFrameBand = 8; // room above the strip for key-frame marks
constexpr double kLabelBand = 18;   // room below it for the times
constexpr double kPlayheadWidth = 4;

QString timeText(double seconds)
{
    const int hundredths = int(std::lround(std::max(0.0, seconds) * 100));
    return QStringLiteral("%1:%2.%3")
        .arg(hundredths / 6000)
        .arg(hundredths / 100 % 60, 2, 10, QLatin1Char('0'))
        .arg(hundredths % 100, 2, 10, QLatin1Char('0'));
}

} // namespace

VUVideoScrubber::VUVideoScrubber(VUMoviePlayer *player, QWidget *parent)
    : QWidget(parent)
    , m_player(player)
{
    setMinimumHeight(int(kKeyFrameBand + kLabelBand + 24));
    connect(player, &VUMoviePlayer::statusChanged, this, [this] { _rebuildStrip(); });
    connect(player, &VUMoviePlayer::currentTimeChanged, this, qOverload<>(&QWidget::update));
    _rebuildStrip();
}

VUVideoScrubber::~VUVideoScrubber() = default;

void VUVideoScrubber::setShowsKeyFrames(bool shows)
{
    if (shows == m_showsKeyFrames)
        return;
    m_showsKeyFrames = shows;
    update();
}

QRectF VUVideoScrubber::stripRect() const
{
    return QRectF(kMargin, kKeyFrameBand, std::max(0.0, width() - 2 * kMargin), std::max(0.0, height() - kKeyFrameBand - kLabelBand));
}

double VUVideoScrubber::timeAtPosition(double x) const
{
    const QRectF strip = stripRect();
    if (!m_player || strip.width() <= 0)
        return 0;
    return std::clamp((x - strip.left()) / strip.width(), 0.0, 1.0) * m_player->duration();
}

double VUVideoScrubber::positionForTime(double time) const
{
    const QRectF strip = stripRect();
    const double duration = m_player ? m_player->duration() : 0;
    return strip.left() + (duration > 0 ? std::clamp(time / duration, 0.0, 1.0) * strip.width() : 0);
}

QList<double> VUVideoScrubber::thumbnailTimes() const
{
    QList<double> times;
    for (const Cell &cell : m_cells)
        times.append(cell.time);
    return times;
}

int VUVideoScrubber::loadedThumbnailCount() const
{
    return int(std::count_if(m_cells.begin(), m_cells.end(), [](const Cell &cell) { return !cell.image.isNull(); }));
}

void VUVideoScrubber::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    _rebuildStrip();
}

void VUVideoScrubber::_rebuildStrip()
{
    m_cells.clear();
    if (m_generator)
        m_generator->cancelAllRequests();
    const QRectF strip = stripRect();
    if (!m_player || m_player->status() != VUMoviePlayer::Status::ReadyToPlay || strip.isEmpty()
        || m_player->presentationSize().isEmpty()) {
        update();
        return;
    }
    if (!m_generator || m_generator->moviePath() != m_player->moviePath())
        m_generator = std::make_unique<VUMovieThumbnailGenerator>(m_player->moviePath());

    // Cells keep the movie's shape at the strip's height; the last one is cut off at the end.
    const QSizeF movie(m_player->presentationSize());
    const double cellWidth = std::max(8.0, strip.height() * movie.width() / movie.height());
    const int count = int(std::ceil(strip.width() / cellWidth));
    QList<double> times;
    for (int i = 0; i < count; ++i) {
        const QRectF rect(strip.left() + i * cellWidth, strip.top(), cellWidth, strip.height());
        // Each cell shows the moment under its middle.
        const double time = timeAtPosition(std::min(rect.center().x(), strip.right()));
        m_cells.push_back({time, rect, {}});
        times.append(time);
    }
    m_generator->setMaximumSize((QSizeF(cellWidth, strip.height()) * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1)));
    // Pictures arrive in the order asked, and none of an older strip after a rebuild cancelled it.
    m_arrived = 0;
    m_generator->generateThumbnails(times, [this](const VUMovieThumbnailGenerator::Thumbnail &thumbnail) {
        Cell &cell = m_cells[m_arrived++];
        cell.image = thumbnail.image;
        update(cell.rect.toAlignedRect());
    });
    update();
}

void VUVideoScrubber::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_player || m_player->status() != VUMoviePlayer::Status::ReadyToPlay)
        return QWidget::mousePressEvent(event);
    m_scrubbing = true;
    m_resumeAfterScrub = m_player->isPlaying();
    m_player->pause();
    Q_EMIT scrubbingBegan();
    _scrub(event->position().x());
}

void VUVideoScrubber::mouseMoveEvent(QMouseEvent *event)
{
    if (m_scrubbing)
        _scrub(event->position().x());
}

void VUVideoScrubber::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_scrubbing)
        return QWidget::mouseReleaseEvent(event);
    _scrub(event->position().x());
    m_scrubbing = false;
    // The exact picture where the finger let go, whatever the tolerance while dragging.
    m_player->seekToTime(m_player->currentTime());
    if (m_resumeAfterScrub)
        m_player->play();
    Q_EMIT scrubbingEnded();
}

void VUVideoScrubber::_scrub(double x)
{
    const double time = timeAtPosition(x);
    m_player->seekToTime(time, m_tolerance);
    Q_EMIT scrubbedToTime(time);
}

void VUVideoScrubber::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF strip = stripRect();
    if (strip.isEmpty())
        return;

    QPainterPath rounded;
    rounded.addRoundedRect(strip, 6, 6);
    painter.save();
    painter.setClipPath(rounded);
    painter.fillRect(strip, QColor(40, 40, 44));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const Cell &cell : m_cells) {
        if (cell.image.isNull())
            continue;
        // Fill the cell, cut to the strip.
        const QSizeF shown = QSizeF(cell.image.size()).scaled(cell.rect.size(), Qt::KeepAspectRatioByExpanding);
        painter.drawImage(QRectF(cell.rect.center() - QPointF(shown.width(), shown.height()) / 2, shown), cell.image);
    }
    painter.restore();

    const double duration = m_player ? m_player->duration() : 0;
    if (m_showsKeyFrames && m_player) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 204, 0));
        for (double key : m_player->keyFrameTimes()) {
            const double x = positionForTime(key);
            QPainterPath mark;
            mark.moveTo(x - 4, 0);
            mark.lineTo(x + 4, 0);
            mark.lineTo(x, kKeyFrameBand - 1);
            mark.closeSubpath();
            painter.drawPath(mark);
        }
    }

    const QColor text = palette().color(QPalette::WindowText);
    painter.setPen(text);
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * 0.85);
    font.setStyleHint(QFont::Monospace);
    painter.setFont(font);
    const QRectF labels(strip.left(), strip.bottom() + 2, strip.width(), kLabelBand - 2);
    const double current = m_player ? m_player->currentTime() : 0;
    painter.drawText(labels, Qt::AlignLeft | Qt::AlignVCenter, timeText(current));
    painter.drawText(labels, Qt::AlignRight | Qt::AlignVCenter, timeText(duration));

    if (duration > 0) {
        const double x = positionForTime(current);
        const QRectF playhead(x - kPlayheadWidth / 2, strip.top() - 3, kPlayheadWidth, strip.height() + 6);
        painter.setPen(QPen(QColor(0, 0, 0, 110), 1));
        painter.setBrush(m_scrubbing ? QColor(255, 204, 0) : QColor(Qt::white));
        painter.drawRoundedRect(playhead, 2, 2);
    }
}
