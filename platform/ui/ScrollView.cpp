#include "ScrollView.h"

#include "DisplayLink.h"
#include "PanGestureRecognizer.h"
#include "PinchGestureRecognizer.h"

#include <QPainter>
#include <QResizeEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ui {

namespace {

// Below this speed (points per second) a deceleration stops.
constexpr double kStopSpeed = 10;
// Critically damped springs (bounce back, paging) with this angular frequency settle in about
// four tenths of a second.
constexpr double kSpringFrequency = 15;
// A release this fast turns the page even short of its middle.
constexpr double kPagingFlingSpeed = 300;
constexpr double kAnimationDuration = 0.3;
constexpr int kIndicatorHideDelayMs = 500;
constexpr double kIndicatorThickness = 3;
constexpr double kIndicatorMargin = 2.5;
constexpr double kIndicatorMinimumLength = 32;
// How much of a pinch past the zoom limits shows: the scale beyond a limit is taken to this power.
constexpr double kZoomRubberExponent = 0.5;
// Each wheel notch with Ctrl zooms by a quarter of an octave.
constexpr double kWheelZoomOctavesPerNotch = 0.25;

double easeInOut(double t)
{
    return t < 0.5 ? 4 * t * t * t : 1 - std::pow(-2 * t + 2, 3) / 2;
}

double axisOf(QPointF p, int axis)
{
    return axis == 0 ? p.x() : p.y();
}

double axisOf(QSizeF s, int axis)
{
    return axis == 0 ? s.width() : s.height();
}

void setAxis(QPointF &p, int axis, double value)
{
    (axis == 0 ? p.rx() : p.ry()) = value;
}

// The offset range for content of `content` size seen through a view of `view` size.
std::pair<QPointF, QPointF> offsetRange(QSizeF content, QSizeF view, const EdgeInsets &inset)
{
    const QPointF min(-inset.left, -inset.top);
    const QPointF max(std::max(min.x(), content.width() + inset.right - view.width()),
                      std::max(min.y(), content.height() + inset.bottom - view.height()));
    return {min, max};
}

QPointF clampOffset(QPointF offset, const std::pair<QPointF, QPointF> &range)
{
    return QPointF(std::clamp(offset.x(), range.first.x(), range.second.x()),
                   std::clamp(offset.y(), range.first.y(), range.second.y()));
}

} // namespace

// What moves the content between frames: per axis a deceleration or a spring, or an eased
// curve of the offset (and of the zoom scale) as a whole.
struct ScrollView::Motion {
    enum class Kind { Idle, Decelerate, Spring };
    struct Axis {
        Kind kind = Kind::Idle;
        double velocity = 0;
        double target = 0;
    };
    Axis axes[2];
    bool curve = false;
    bool zoomCurve = false;
    double curveStart = 0;
    QPointF fromOffset, toOffset;
    double fromScale = 1, toScale = 1;
    double lastTime = 0;

    bool isIdle() const { return !curve && axes[0].kind == Kind::Idle && axes[1].kind == Kind::Idle; }
};

class ScrollView::Indicator : public QWidget {
public:
    explicit Indicator(QWidget *parent) : QWidget(parent)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 90));
        const double radius = std::min(width(), height()) / 2.0;
        painter.drawRoundedRect(QRectF(rect()), radius, radius);
    }
};

ScrollView::ScrollView(QWidget *parent)
    : QWidget(parent), m_content(new QWidget(this)), m_indicatorHideTimer(new QTimer(this)),
      m_pan(new PanGestureRecognizer(this)), m_pinch(new PinchGestureRecognizer(this)), m_motion(std::make_unique<Motion>()),
      m_link(new DisplayLink([this](DisplayLink &link) { onFrame(link.timestamp()); }, this))
{
    m_content->resize(0, 0);
    m_indicators[0] = new Indicator(this);
    m_indicators[1] = new Indicator(this);
    m_indicatorHideTimer->setSingleShot(true);
    connect(m_indicatorHideTimer, &QTimer::timeout, this, [this] { hideScrollIndicators(); });

    m_pan->recognizeSimultaneouslyWith(m_pinch);
    m_pan->setShouldBegin([this](GestureRecognizer &) {
        const QPointF travel = m_pan->travel();
        if (travel.isNull())
            return isScrollable(0) || isScrollable(1);
        return isScrollable(std::abs(travel.x()) > std::abs(travel.y()) ? 0 : 1);
    });
    m_pinch->setShouldBegin([this](GestureRecognizer &) { return zoomView() && m_maximumZoomScale > m_minimumZoomScale; });
    connect(m_pan, &GestureRecognizer::action, this, [this] { handlePan(); });
    connect(m_pinch, &GestureRecognizer::action, this, [this] { handlePinch(); });
    connect(m_pan, &GestureRecognizer::touchDown, this, [this] {
        m_tracking = true;
        // A touch catches moving content where it is; a zoom springing back to its limit finishes.
        m_touchStoppedScrolling = !m_motion->isIdle() && !m_motion->zoomCurve;
        if (m_touchStoppedScrolling)
            stopMotion();
    });
    connect(m_pan, &GestureRecognizer::touchUp, this, [this] {
        m_tracking = false;
        // Content stopped past an edge by a touch goes back when the touch lifts.
        if (!m_dragging && !m_zooming && m_motion->isIdle() && !offsetIsInRange())
            startSettling(QPointF());
    });
}

ScrollView::~ScrollView() = default;

QPointF ScrollView::minimumContentOffset() const
{
    return offsetRange(m_contentSize, QSizeF(size()), m_inset).first;
}

QPointF ScrollView::maximumContentOffset() const
{
    return offsetRange(m_contentSize, QSizeF(size()), m_inset).second;
}

bool ScrollView::offsetIsInRange() const
{
    return clampOffset(m_offset, offsetRange(m_contentSize, QSizeF(size()), m_inset)) == m_offset;
}

bool ScrollView::isScrollable(int axis) const
{
    const double content = axisOf(m_contentSize, axis) + (axis == 0 ? m_inset.horizontal() : m_inset.vertical());
    return m_alwaysBounce[axis] || content > axisOf(QSizeF(size()), axis) + 0.5;
}

void ScrollView::setContentSize(QSizeF size)
{
    if (size == m_contentSize)
        return;
    const bool wasInRange = offsetIsInRange();
    m_contentSize = size;
    m_content->resize(int(std::ceil(size.width())), int(std::ceil(size.height())));
    clampOffsetIfIdle(wasInRange);
    updateIndicators();
}

void ScrollView::setContentInset(const EdgeInsets &inset)
{
    if (inset == m_inset)
        return;
    const bool wasInRange = offsetIsInRange();
    m_inset = inset;
    clampOffsetIfIdle(wasInRange);
    updateIndicators();
}

void ScrollView::clampOffsetIfIdle(bool wasInRange)
{
    if (wasInRange && !m_dragging && !m_zooming && m_motion->isIdle())
        applyOffset(clampOffset(m_offset, offsetRange(m_contentSize, QSizeF(size()), m_inset)));
}

void ScrollView::setContentOffset(QPointF offset, bool animated)
{
    stopMotion();
    if (!animated) {
        applyOffset(offset);
        return;
    }
    startCurve(offset, m_zoomScale, false);
}

void ScrollView::scrollRectToVisible(const QRectF &rect, bool animated)
{
    QPointF target = m_offset;
    for (int axis = 0; axis < 2; ++axis) {
        const double lead = axis == 0 ? rect.left() : rect.top();
        const double length = axisOf(rect.size(), axis);
        const double visible = axisOf(QSizeF(size()), axis);
        const double offset = axisOf(m_offset, axis);
        if (length > visible || lead < offset)
            setAxis(target, axis, lead);
        else if (lead + length > offset + visible)
            setAxis(target, axis, lead + length - visible);
    }
    target = clampOffset(target, offsetRange(m_contentSize, QSizeF(size()), m_inset));
    if (target != m_offset)
        setContentOffset(target, animated);
}

bool ScrollView::isScrollEnabled() const
{
    return m_pan->isEnabled();
}

void ScrollView::setScrollEnabled(bool enabled)
{
    m_pan->setEnabled(enabled);
}

void ScrollView::applyOffset(QPointF offset)
{
    if (offset == m_offset)
        return;
    m_offset = offset;
    m_content->move(-qRound(offset.x()), -qRound(offset.y()));
    updateIndicators();
    if (m_dragging || !m_motion->isIdle())
        showIndicators();
    boundsDidChange();
    if (m_delegate)
        m_delegate->didScroll(this);
    Q_EMIT scrolled();
}

double ScrollView::rubberBandOffset(int axis, double raw) const
{
    const auto [min, max] = offsetRange(m_contentSize, QSizeF(size()), m_inset);
    const double low = axisOf(min, axis), high = axisOf(max, axis);
    if (!m_bounces)
        return std::clamp(raw, low, high);
    // Past an edge the content moves less and less, never more than a view's length.
    const double dimension = std::max(1.0, axisOf(QSizeF(size()), axis));
    const auto band = [dimension](double overshoot) { return (1 - 1 / (overshoot * 0.55 / dimension + 1)) * dimension; };
    if (raw < low)
        return low - band(low - raw);
    if (raw > high)
        return high + band(raw - high);
    return raw;
}

void ScrollView::handlePan()
{
    switch (m_pan->state()) {
    case GestureRecognizer::State::Began:
        stopMotion();
        m_dragging = true;
        m_dragRawOffset = m_offset;
        m_dragStartPage = m_offset;
        m_lastTranslation = m_pan->translation();
        if (m_delegate)
            m_delegate->willBeginDragging(this);
        showIndicators();
        break;
    case GestureRecognizer::State::Changed: {
        // Deltas rather than the whole translation, so a pinch may move the offset meanwhile.
        const QPointF delta = m_pan->translation() - m_lastTranslation;
        m_lastTranslation = m_pan->translation();
        QPointF offset = m_offset;
        const auto range = offsetRange(m_contentSize, QSizeF(size()), m_inset);
        for (int axis = 0; axis < 2; ++axis) {
            if (!isScrollable(axis))
                continue;
            double raw = axisOf(m_dragRawOffset, axis) - axisOf(delta, axis);
            if (m_pan->isScrolling()) // wheels never pull past an edge
                raw = std::clamp(raw, axisOf(range.first, axis), axisOf(range.second, axis));
            setAxis(m_dragRawOffset, axis, raw);
            setAxis(offset, axis, rubberBandOffset(axis, raw));
        }
        applyOffset(offset);
        break;
    }
    case GestureRecognizer::State::Ended:
    case GestureRecognizer::State::Cancelled: {
        if (!m_dragging)
            break;
        m_dragging = false;
        startSettling(m_pan->state() == GestureRecognizer::State::Ended ? -m_pan->velocity() : QPointF());
        if (m_delegate)
            m_delegate->didEndDragging(this, m_decelerating);
        if (!m_decelerating)
            m_indicatorHideTimer->start(kIndicatorHideDelayMs);
        break;
    }
    default:
        break;
    }
}

void ScrollView::flingWithVelocity(QPointF velocity)
{
    stopMotion();
    m_dragStartPage = m_offset;
    startSettling(velocity);
}

QPointF ScrollView::pageTarget(QPointF velocity) const
{
    QPointF target = m_offset;
    for (int axis = 0; axis < 2; ++axis) {
        const double page = axisOf(QSizeF(size()), axis);
        if (page <= 0 || !isScrollable(axis))
            continue;
        const double position = axisOf(m_offset, axis) / page;
        const double v = axisOf(velocity, axis);
        double index = std::round(position);
        if (v > kPagingFlingSpeed)
            index = std::ceil(position);
        else if (v < -kPagingFlingSpeed)
            index = std::floor(position);
        // One page at most from where the drag started.
        const double start = std::round(axisOf(m_dragStartPage, axis) / page);
        index = std::clamp(index, start - 1, start + 1);
        setAxis(target, axis, index * page);
    }
    return clampOffset(target, offsetRange(m_contentSize, QSizeF(size()), m_inset));
}

void ScrollView::startSettling(QPointF velocity)
{
    Motion &m = *m_motion;
    const auto range = offsetRange(m_contentSize, QSizeF(size()), m_inset);
    const QPointF page = m_paging ? pageTarget(velocity) : QPointF();
    for (int axis = 0; axis < 2; ++axis) {
        Motion::Axis &a = m.axes[axis];
        const double offset = axisOf(m_offset, axis);
        const double v = isScrollable(axis) ? axisOf(velocity, axis) : 0;
        a = Motion::Axis();
        if (m_paging && isScrollable(axis)) {
            a.target = axisOf(page, axis);
            // Toward the page no faster than the spring itself would go, so it does not overshoot.
            const double limit = kSpringFrequency * std::abs(a.target - offset);
            a.velocity = (a.target - offset) * v > 0 ? std::clamp(v, -limit, limit) : 0;
            a.kind = std::abs(a.target - offset) > 0.01 ? Motion::Kind::Spring : Motion::Kind::Idle;
        } else if (offset < axisOf(range.first, axis) || offset > axisOf(range.second, axis)) {
            a.kind = Motion::Kind::Spring;
            a.target = std::clamp(offset, axisOf(range.first, axis), axisOf(range.second, axis));
            a.velocity = v;
        } else if (std::abs(v) > kStopSpeed) {
            a.kind = Motion::Kind::Decelerate;
            a.velocity = v;
        }
    }
    if (!m.isIdle()) {
        m_decelerating = true;
        startAnimating();
    }
}

void ScrollView::startAnimating()
{
    m_motion->lastTime = DisplayLink::currentTime();
    m_link->schedule(this);
    m_link->setPaused(false);
}

void ScrollView::stopMotion()
{
    ++m_motionGeneration;
    *m_motion = Motion();
    m_link->setPaused(true);
    m_decelerating = false;
    m_zoomBouncing = false;
}

void ScrollView::onFrame(double timestamp)
{
    Motion &m = *m_motion;
    // A delegate told of the move may stop this motion or start another.
    const quint64 generation = m_motionGeneration;
    const double dt = std::clamp(timestamp - m.lastTime, 0.0, 0.1);
    m.lastTime = timestamp;
    if (m.curve) {
        // Frame times are sums of intervals; a hair short of the end is the end.
        const double t = std::clamp((timestamp - m.curveStart) / kAnimationDuration + 1e-9, 0.0, 1.0);
        const double e = easeInOut(t);
        if (m.zoomCurve)
            setZoomGeometry(m.fromScale + (m.toScale - m.fromScale) * e);
        applyOffset(m.fromOffset + (m.toOffset - m.fromOffset) * e);
        if (m.zoomCurve && m_delegate)
            m_delegate->didZoom(this);
        if (generation != m_motionGeneration)
            return;
        if (t >= 1) {
            m.curve = false;
            const bool zoomed = std::exchange(m.zoomCurve, false);
            if (m.isIdle())
                m_link->setPaused(true);
            if (zoomed)
                finishZoom();
            else if (m_delegate)
                m_delegate->didEndScrollingAnimation(this);
            if (generation != m_motionGeneration)
                return;
        }
    } else {
        const double rate = m_decelerationRate;
        QPointF offset = m_offset;
        const auto range = offsetRange(m_contentSize, QSizeF(size()), m_inset);
        for (int axis = 0; axis < 2; ++axis) {
            Motion::Axis &a = m.axes[axis];
            double p = axisOf(offset, axis);
            if (a.kind == Motion::Kind::Decelerate) {
                // Velocity decays by `rate` per millisecond; this is its exact integral over dt.
                const double factor = std::pow(rate, dt * 1000);
                p += a.velocity * (factor - 1) / (1000 * std::log(rate));
                a.velocity *= factor;
                const double low = axisOf(range.first, axis), high = axisOf(range.second, axis);
                if (p < low || p > high) {
                    if (m_bounces) {
                        a.kind = Motion::Kind::Spring;
                        a.target = p < low ? low : high;
                    } else {
                        p = std::clamp(p, low, high);
                        a = Motion::Axis();
                    }
                } else if (std::abs(a.velocity) < kStopSpeed) {
                    a = Motion::Axis();
                }
            } else if (a.kind == Motion::Kind::Spring) {
                const double w = kSpringFrequency;
                const double x0 = p - a.target, v0 = a.velocity;
                const double decay = std::exp(-w * dt);
                const double x = (x0 + (v0 + w * x0) * dt) * decay;
                a.velocity = (v0 - w * (v0 + w * x0) * dt) * decay;
                p = a.target + x;
                if (std::abs(x) < 0.5 && std::abs(a.velocity) < kStopSpeed) {
                    p = a.target;
                    a = Motion::Axis();
                }
            }
            setAxis(offset, axis, p);
        }
        applyOffset(offset);
        if (generation != m_motionGeneration)
            return;
    }

    if (!m.isIdle())
        return;
    m_link->setPaused(true);
    if (!m_dragging && !m_tracking)
        m_indicatorHideTimer->start(kIndicatorHideDelayMs);
    if (std::exchange(m_decelerating, false) && m_delegate)
        m_delegate->didEndDecelerating(this);
}

void ScrollView::setZoomGeometry(double scale)
{
    m_zoomScale = scale;
    if (m_zoomView)
        m_zoomView->setGeometry(0, 0, qRound(m_zoomBaseSize.width() * scale), qRound(m_zoomBaseSize.height() * scale));
    m_contentSize = m_zoomBaseSize * scale;
    m_content->resize(int(std::ceil(m_contentSize.width())), int(std::ceil(m_contentSize.height())));
}

QWidget *ScrollView::zoomView()
{
    QWidget *view = m_delegate ? m_delegate->viewForZooming(this) : nullptr;
    if (view != m_zoomView) {
        m_zoomView = view;
        m_zoomBaseSize = view ? QSizeF(view->size()) / m_zoomScale : QSizeF();
    } else if (view) {
        // Resized by its owner: that size is the one at the current scale.
        const QSize expected(qRound(m_zoomBaseSize.width() * m_zoomScale), qRound(m_zoomBaseSize.height() * m_zoomScale));
        if (view->size() != expected)
            m_zoomBaseSize = QSizeF(view->size()) / m_zoomScale;
    }
    return view;
}

void ScrollView::applyZoom(double scale, QPointF anchor)
{
    QWidget *view = zoomView();
    if (!view || scale <= 0)
        return;
    const QPointF point = (m_offset + anchor) / m_zoomScale;
    setZoomGeometry(scale);
    const QPointF offset = point * scale - anchor;
    if (m_dragging)
        m_dragRawOffset = offset;
    applyOffset(offset);
    updateIndicators();
    if (m_delegate)
        m_delegate->didZoom(this);
}

void ScrollView::startCurve(QPointF offset, double scale, bool zoom)
{
    stopMotion();
    Motion &m = *m_motion;
    m.curve = true;
    m.zoomCurve = zoom;
    m.curveStart = DisplayLink::currentTime();
    m.fromOffset = m_offset;
    m.toOffset = offset;
    m.fromScale = m_zoomScale;
    m.toScale = scale;
    startAnimating();
}

void ScrollView::finishZoom()
{
    m_zoomBouncing = false;
    if (m_delegate)
        m_delegate->didEndZooming(this, m_zoomView, m_zoomScale);
}

void ScrollView::setZoomScale(double scale, bool animated)
{
    if (!zoomView())
        return;
    scale = std::clamp(scale, m_minimumZoomScale, m_maximumZoomScale);
    const QPointF centre(width() / 2.0, height() / 2.0);
    if (!animated) {
        stopMotion();
        applyZoom(scale, centre);
        applyOffset(clampOffset(m_offset, offsetRange(m_contentSize, QSizeF(size()), m_inset)));
        return;
    }
    const QPointF offset = (m_offset + centre) / m_zoomScale * scale - centre;
    startCurve(clampOffset(offset, offsetRange(m_zoomBaseSize * scale, QSizeF(size()), m_inset)), scale, true);
}

void ScrollView::zoomToRect(const QRectF &rect, bool animated)
{
    if (!zoomView() || rect.isEmpty())
        return;
    const double scale = std::clamp(std::min(width() / rect.width(), height() / rect.height()), m_minimumZoomScale, m_maximumZoomScale);
    const QPointF offset = clampOffset(rect.center() * scale - QPointF(width() / 2.0, height() / 2.0),
                                       offsetRange(m_zoomBaseSize * scale, QSizeF(size()), m_inset));
    stopMotion();
    if (animated) {
        startCurve(offset, scale, true);
        return;
    }
    applyZoom(scale, QPointF());
    applyOffset(offset);
    finishZoom();
}

void ScrollView::setMinimumZoomScale(double scale)
{
    m_minimumZoomScale = scale;
    m_maximumZoomScale = std::max(m_maximumZoomScale, scale);
}

void ScrollView::setMaximumZoomScale(double scale)
{
    m_maximumZoomScale = scale;
    m_minimumZoomScale = std::min(m_minimumZoomScale, scale);
}

void ScrollView::handlePinch()
{
    const QPointF anchor = m_pinch->locationInView(this);
    switch (m_pinch->state()) {
    case GestureRecognizer::State::Began:
        stopMotion();
        m_zooming = true;
        m_pinchStartScale = m_zoomScale;
        [[fallthrough]];
    case GestureRecognizer::State::Changed: {
        double scale = m_pinchStartScale * m_pinch->scale();
        if (scale > m_maximumZoomScale)
            scale = m_bouncesZoom ? m_maximumZoomScale * std::pow(scale / m_maximumZoomScale, kZoomRubberExponent) : m_maximumZoomScale;
        else if (scale < m_minimumZoomScale)
            scale = m_bouncesZoom ? m_minimumZoomScale * std::pow(scale / m_minimumZoomScale, kZoomRubberExponent) : m_minimumZoomScale;
        applyZoom(scale, anchor);
        break;
    }
    case GestureRecognizer::State::Ended:
    case GestureRecognizer::State::Cancelled: {
        m_zooming = false;
        const double target = std::clamp(m_zoomScale, m_minimumZoomScale, m_maximumZoomScale);
        const QPointF offset = (m_offset + anchor) / m_zoomScale * target - anchor;
        const QPointF clamped = clampOffset(offset, offsetRange(m_zoomBaseSize * target, QSizeF(size()), m_inset));
        if (target != m_zoomScale) {
            startCurve(clamped, target, true);
            m_zoomBouncing = true;
        } else {
            finishZoom();
            if (!m_dragging && !offsetIsInRange())
                startSettling(QPointF());
        }
        break;
    }
    default:
        break;
    }
}

void ScrollView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier) || !zoomView() || m_maximumZoomScale <= m_minimumZoomScale) {
        event->ignore();
        return;
    }
    const double notches = event->angleDelta().y() / 120.0;
    const double scale = std::clamp(m_zoomScale * std::pow(2.0, notches * kWheelZoomOctavesPerNotch), m_minimumZoomScale, m_maximumZoomScale);
    stopMotion();
    applyZoom(scale, event->position());
    applyOffset(clampOffset(m_offset, offsetRange(m_contentSize, QSizeF(size()), m_inset)));
    finishZoom();
    event->accept();
}

void ScrollView::resizeEvent(QResizeEvent *event)
{
    const bool wasInRange = clampOffset(m_offset, offsetRange(m_contentSize, QSizeF(event->oldSize().expandedTo(QSize(0, 0))), m_inset)) == m_offset;
    clampOffsetIfIdle(wasInRange);
    updateIndicators();
    boundsDidChange();
}

void ScrollView::setShowsHorizontalScrollIndicator(bool shows)
{
    m_showsIndicator[0] = shows;
    updateIndicators();
}

void ScrollView::setShowsVerticalScrollIndicator(bool shows)
{
    m_showsIndicator[1] = shows;
    updateIndicators();
}

QWidget *ScrollView::horizontalScrollIndicator() const
{
    return m_indicators[0];
}

QWidget *ScrollView::verticalScrollIndicator() const
{
    return m_indicators[1];
}

void ScrollView::flashScrollIndicators()
{
    showIndicators();
    if (!m_dragging && m_motion->isIdle())
        m_indicatorHideTimer->start(kIndicatorHideDelayMs);
}

void ScrollView::showIndicators()
{
    m_indicatorHideTimer->stop();
    for (int axis = 0; axis < 2; ++axis)
        if (m_showsIndicator[axis] && isScrollable(axis) && axisOf(m_contentSize, axis) > 0) {
            m_indicators[axis]->raise();
            m_indicators[axis]->show();
        }
}

void ScrollView::hideScrollIndicators()
{
    m_indicators[0]->hide();
    m_indicators[1]->hide();
}

void ScrollView::updateIndicators()
{
    const auto [min, max] = offsetRange(m_contentSize, QSizeF(size()), m_inset);
    for (int axis = 0; axis < 2; ++axis) {
        Indicator *indicator = m_indicators[axis];
        if (!m_showsIndicator[axis] || !isScrollable(axis)) {
            indicator->hide();
            continue;
        }
        const double view = axisOf(QSizeF(size()), axis);
        const double track = view - 2 * kIndicatorMargin - (m_indicators[1 - axis]->isHidden() ? 0 : kIndicatorThickness);
        const double content = axisOf(m_contentSize, axis) + (axis == 0 ? m_inset.horizontal() : m_inset.vertical());
        double length = std::max(kIndicatorMinimumLength, track * std::min(1.0, view / std::max(content, 1.0)));
        const double offset = axisOf(m_offset, axis), low = axisOf(min, axis), high = axisOf(max, axis);
        // Past an edge the indicator shrinks by the overshoot.
        length = std::max(kIndicatorThickness * 2, length - std::max(0.0, low - offset) - std::max(0.0, offset - high));
        const double progress = high > low ? std::clamp((offset - low) / (high - low), 0.0, 1.0) : 0;
        const double along = kIndicatorMargin + progress * (track - length);
        const double across = axisOf(QSizeF(size()), 1 - axis) - kIndicatorMargin - kIndicatorThickness;
        const QRectF frame = axis == 0 ? QRectF(along, across, length, kIndicatorThickness)
                                       : QRectF(across, along, kIndicatorThickness, length);
        indicator->setGeometry(frame.toRect());
    }
}

} // namespace ui
