#include "VUUserTransformView.h"

#include "perf/animation/VUSpringDriver.h"

#include "ui/PanGestureRecognizer.h"
#include "ui/PinchGestureRecognizer.h"
#include "ui/RotationGestureRecognizer.h"
#include "ui/TapGestureRecognizer.h"

#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace {

bool isActive(const ui::GestureRecognizer *recognizer)
{
    return recognizer->state() == ui::GestureRecognizer::State::Began || recognizer->state() == ui::GestureRecognizer::State::Changed;
}

} // namespace

VUUserTransformView::VUUserTransformView(QWidget *parent)
    : QWidget(parent)
    , m_pan(new ui::PanGestureRecognizer(this))
    , m_pinch(new ui::PinchGestureRecognizer(this))
    , m_rotation(new ui::RotationGestureRecognizer(this))
    , m_doubleTap(new ui::TapGestureRecognizer(this))
{
    m_pan->setMaximumNumberOfTouches(2);
    m_pan->recognizeSimultaneouslyWith(m_pinch);
    m_pan->recognizeSimultaneouslyWith(m_rotation);
    m_pinch->recognizeSimultaneouslyWith(m_rotation);
    m_doubleTap->setNumberOfTapsRequired(2);
    for (ui::GestureRecognizer *recognizer : {static_cast<ui::GestureRecognizer *>(m_pan), static_cast<ui::GestureRecognizer *>(m_pinch),
                                              static_cast<ui::GestureRecognizer *>(m_rotation)})
        connect(recognizer, &ui::GestureRecognizer::action, this, &VUUserTransformView::_gestureChanged);
    connect(m_doubleTap, &ui::GestureRecognizer::action, this, [this] {
        if (m_doubleTap->state() == ui::GestureRecognizer::State::Ended)
            zoomAtLocation(m_doubleTap->locationInView(this));
    });
}

VUUserTransformView::~VUUserTransformView()
{
    if (m_zoom)
        m_zoom->cancel();
}

void VUUserTransformView::setImage(graphics::ImagePtr image)
{
    m_image = std::move(image);
    m_upright = m_image ? m_image->uprightPixels() : QImage();
    update();
}

void VUUserTransformView::setLimits(const VUUserTransformLimits &limits)
{
    m_limits = limits;
    _apply(m_transform);
}

QSizeF VUUserTransformView::fittedPictureSize() const
{
    if (m_upright.isNull())
        return QSizeF(size());
    return QSizeF(m_upright.size()).scaled(QSizeF(size()), Qt::KeepAspectRatio);
}

QPointF VUUserTransformView::_fromCentre(QPointF location) const
{
    return location - QRectF(rect()).center();
}

QTransform VUUserTransformView::_about(QPointF location, const QTransform &transform) const
{
    const QPointF anchor = _fromCentre(location);
    return QTransform::fromTranslate(-anchor.x(), -anchor.y()) * transform * QTransform::fromTranslate(anchor.x(), anchor.y());
}

void VUUserTransformView::setUserTransform(const QTransform &transform)
{
    if (m_zoom)
        m_zoom->cancel();
    _apply(transform);
}

void VUUserTransformView::_apply(const QTransform &transform)
{
    const VUTransformComponents c = VUClampUserTransform(VUDecomposeTransform(transform), m_limits, fittedPictureSize());
    const QTransform clamped = VUComposeTransform(c.translation, c.xScale, c.yScale, c.rotation);
    if (clamped == m_transform)
        return;
    m_transform = clamped;
    update();
    Q_EMIT userTransformChanged(m_transform);
}

double VUUserTransformView::_gestureScale() const
{
    return isActive(m_pinch) ? m_pinch->scale() : 1;
}

double VUUserTransformView::_gestureTurn() const
{
    return isActive(m_rotation) ? m_rotation->rotation() : 0;
}

void VUUserTransformView::_gestureChanged(ui::GestureRecognizer *recognizer)
{
    const int active = (isActive(m_pan) ? 1 : 0) | (isActive(m_pinch) ? 2 : 0) | (isActive(m_rotation) ? 4 : 0);
    if (!active) {
        m_tracking = false;
        return;
    }
    const QPointF location = _fromCentre(recognizer->locationInView(this));
    const int touches = recognizer->numberOfTouches();
    if (!m_tracking) {
        // The recognisers count from touch-down, so the gesture does too: what the fingers
        // had already done before one was recognised shows at once.
        if (m_zoom)
            m_zoom->cancel();
        m_tracking = true;
        m_start = m_transform;
        m_anchor = location - m_pan->travel();
        m_scaleBase = 1;
        m_turnBase = 0;
    } else if ((m_active & ~active) != 0 || touches != m_touches) {
        // A finger came or went, or a gesture ended: go on from what is shown, so nothing
        // jumps. A gesture that joins counts from touch-down like the others, so the picture
        // stays under the fingers.
        m_start = m_transform;
        m_anchor = location;
        m_scaleBase = _gestureScale();
        m_turnBase = _gestureTurn();
    }
    m_active = active;
    m_touches = touches;
    const double scale = _gestureScale() / m_scaleBase;
    const double turn = m_limits.allowsRotation ? _gestureTurn() - m_turnBase : 0;
    QTransform change;
    change.rotateRadians(turn);
    change.scale(scale, scale);
    _apply(m_start * QTransform::fromTranslate(-m_anchor.x(), -m_anchor.y()) * change * QTransform::fromTranslate(location.x(), location.y()));
}

void VUUserTransformView::zoomAtLocation(QPointF location)
{
    if (m_zoom)
        m_zoom->cancel();
    const VUTransformComponents from = userTransformComponents();
    QTransform target;
    if (from.xScale <= 1.01) {
        QTransform zoom;
        zoom.scale(m_doubleTapScale, m_doubleTapScale);
        target = m_transform * _about(location, zoom);
    }
    const VUTransformComponents to = VUClampUserTransform(VUDecomposeTransform(target), m_limits, fittedPictureSize());
    const double turn = VUAngleDifference(from.rotation, to.rotation);
    m_zoom = VUSpringDriver::start(this, VUSpring(kZoomDuration, 1), 0, [this, from, to, turn](double f) {
        const double scale = from.xScale + (to.xScale - from.xScale) * f;
        _apply(VUComposeTransform(from.translation + (to.translation - from.translation) * f, scale, scale, from.rotation + turn * f));
    });
}

void VUUserTransformView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QWidget::wheelEvent(event);
        return;
    }
    const double steps = event->angleDelta().y() / 120.0;
    QTransform change;
    if (event->modifiers() & Qt::ShiftModifier) {
        change.rotateRadians(steps * M_PI / 36);
    } else {
        const double factor = std::pow(1.2, steps);
        change.scale(factor, factor);
    }
    setUserTransform(m_transform * _about(event->position(), change));
    event->accept();
}

void VUUserTransformView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Dark grey rather than black, so the picture's edges show where its own black meets them.
    painter.fillRect(rect(), QColor(44, 44, 46));
    if (m_upright.isNull())
        return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    painter.setTransform(m_transform, true);
    const QSizeF fitted = fittedPictureSize();
    painter.drawImage(QRectF(QPointF(-fitted.width() / 2, -fitted.height() / 2), fitted), m_upright);
}
