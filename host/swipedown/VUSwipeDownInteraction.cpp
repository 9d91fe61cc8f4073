#include "VUSwipeDownInteraction.h"

#include "perf/animation/VUSpringDriver.h"

#include "ui/PanGestureRecognizer.h"

#include <QWidget>

#include <cmath>

double VURubberBandOffset(double offset, double dimension, double coefficient)
{
    if (dimension <= 0)
        return 0;
    const double magnitude = (1 - 1 / (std::abs(offset) * coefficient / dimension + 1)) * dimension;
    return std::copysign(magnitude, offset);
}

QPointF VUSwipeDownDisplayedOffset(QPointF translation, QSizeF size, const VUSwipeDownParameters &parameters)
{
    const auto resisted = [&](double travel, double dimension) {
        return parameters.rubberBanding ? VURubberBandOffset(travel, dimension, parameters.rubberBandCoefficient) : 0.0;
    };
    const double y = translation.y() >= 0 ? translation.y() : resisted(translation.y(), size.height());
    // Sideways it follows freely once it is on its way down, as a held photo does.
    double x = 0;
    if (parameters.followsHorizontally)
        x = translation.y() > 0 ? translation.x() : resisted(translation.x(), size.width());
    return {x, y};
}

double VUSwipeDownBackgroundAlpha(double offsetY, const VUSwipeDownParameters &parameters)
{
    if (!parameters.dimsBackground || offsetY <= 0)
        return 1;
    const double fraction = parameters.dimmingDistance > 0 ? std::min(1.0, offsetY / parameters.dimmingDistance) : 1.0;
    return 1 - fraction * (1 - std::clamp(parameters.minimumBackgroundAlpha, 0.0, 1.0));
}

bool VUSwipeDownShouldDismiss(double offsetY, double velocityY, const VUSwipeDownParameters &parameters)
{
    if (velocityY >= parameters.dismissalVelocity && velocityY > 0)
        return true;
    return offsetY >= parameters.dismissalDistance && velocityY > -parameters.dismissalVelocity;
}

VUSwipeDownInteraction::VUSwipeDownInteraction(QWidget *view, const VUSwipeDownParameters &parameters)
    : QObject(view)
    , m_view(view)
    , m_parameters(parameters)
    , m_pan(new ui::PanGestureRecognizer(view))
{
    m_pan->setMaximumNumberOfTouches(1);
    // Only a downward start is this gesture's; sideways pans belong to whatever pages beneath.
    m_pan->setShouldBegin([this](ui::GestureRecognizer &) {
        const QPointF travel = m_pan->travel();
        return m_state != State::Dismissing && m_state != State::Dismissed && travel.y() > std::abs(travel.x());
    });
    connect(m_pan, &ui::GestureRecognizer::action, this, &VUSwipeDownInteraction::_handlePan);
}

VUSwipeDownInteraction::~VUSwipeDownInteraction()
{
    if (m_spring)
        m_spring->cancel();
}

void VUSwipeDownInteraction::_handlePan()
{
    switch (m_pan->state()) {
    case ui::GestureRecognizer::State::Began:
        // A finger catches content that is settling back.
        if (m_spring)
            m_spring->cancel();
        m_pan->setTranslation(m_offset);
        _setState(State::Dragging);
        [[fallthrough]];
    case ui::GestureRecognizer::State::Changed:
        _setOffset(VUSwipeDownDisplayedOffset(m_pan->translation(), QSizeF(m_view->size()), m_parameters));
        break;
    case ui::GestureRecognizer::State::Ended:
        _release(m_pan->velocity());
        break;
    case ui::GestureRecognizer::State::Cancelled:
        _release(QPointF());
        break;
    default:
        break;
    }
}

void VUSwipeDownInteraction::_release(QPointF velocity)
{
    m_releaseOffset = m_offset;
    m_releaseVelocity = velocity;
    const bool dismiss = VUSwipeDownShouldDismiss(m_offset.y(), velocity.y(), m_parameters);
    const QPointF from = m_offset;
    // Off the bottom, keeping the direction it was going sideways; or home.
    const double height = m_view->height();
    const QPointF to = dismiss ? QPointF(from.x() + (from.y() > 0 ? from.x() / from.y() : 0) * (height - from.y()), height) : QPointF();
    const double distance = std::hypot(to.x() - from.x(), to.y() - from.y());
    const double speed = distance > 0 ? (velocity.x() * (to.x() - from.x()) + velocity.y() * (to.y() - from.y())) / (distance * distance) : 0;
    _setState(dismiss ? State::Dismissing : State::Returning);
    const VUSpring spring(m_parameters.springDuration, dismiss ? 1.0 : m_parameters.springDampingRatio);
    m_spring = VUSpringDriver::start(
        m_view, spring, speed, [this, from, to](double f) { _setOffset(from + (to - from) * f); },
        [this, dismiss](bool finished) {
            if (!finished)
                return;
            _setState(dismiss ? State::Dismissed : State::Idle);
            if (dismiss)
                Q_EMIT dismissed();
        });
}

void VUSwipeDownInteraction::_setOffset(QPointF offset)
{
    m_offset = offset;
    m_backgroundAlpha = VUSwipeDownBackgroundAlpha(offset.y(), m_parameters);
    Q_EMIT offsetChanged(m_offset, m_backgroundAlpha);
}

void VUSwipeDownInteraction::_setState(State state)
{
    if (state == m_state)
        return;
    m_state = state;
    Q_EMIT stateChanged(state);
}
