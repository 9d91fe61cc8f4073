#include "PanGestureRecognizer.h"

#include <QLineF>

namespace ui {

namespace {

// Velocity looks at the last tenth of a second of movement.
constexpr double kVelocityWindow = 0.1;
// A notched wheel's pan ends after this long without a notch.
constexpr int kWheelEndMilliseconds = 120;

} // namespace

PanGestureRecognizer::PanGestureRecognizer(QWidget *view) : GestureRecognizer(view)
{
    m_wheelEnd.setSingleShot(true);
    connect(&m_wheelEnd, &QTimer::timeout, this, [this] {
        if (m_scrolling && (state() == State::Began || state() == State::Changed)) {
            m_samples.clear();
            setState(State::Ended);
        }
    });
}

void PanGestureRecognizer::setTranslation(QPointF translation)
{
    m_translation = translation;
    if (!m_samples.empty())
        m_samples.erase(m_samples.begin(), m_samples.end() - 1);
}

QPointF PanGestureRecognizer::velocity() const
{
    if (m_samples.size() < 2)
        return {};
    const Sample &last = m_samples.back();
    auto first = m_samples.end() - 2;
    while (first != m_samples.begin() && last.time - (first - 1)->time <= kVelocityWindow)
        --first;
    const double dt = last.time - first->time;
    if (dt <= 0 || dt > 2 * kVelocityWindow)
        return {};
    return (last.travel - first->travel) / dt;
}

void PanGestureRecognizer::addSample(double timestamp)
{
    m_samples.push_back({timestamp, m_travel});
    while (m_samples.size() > 2 && timestamp - m_samples.front().time > 2 * kVelocityWindow)
        m_samples.pop_front();
}

void PanGestureRecognizer::move(QPointF delta, double timestamp)
{
    m_travel += delta;
    addSample(timestamp);
    if (state() == State::Possible) {
        if (QLineF(QPointF(), m_travel).length() >= m_minimumDistance && touches().size() >= m_minimumTouches)
            setState(State::Began);
    } else {
        m_translation += delta;
        setState(State::Changed);
    }
}

void PanGestureRecognizer::touchesBegan(const QList<Touch> &touches, double timestamp)
{
    if (touches.size() == this->touches().size()) {
        m_travel = {};
        m_samples.clear();
        addSample(timestamp);
    }
    if (this->touches().size() > m_maximumTouches && state() == State::Possible) {
        setState(State::Failed);
        return;
    }
    m_lastCentroid = centroid();
}

void PanGestureRecognizer::touchesMoved(const QList<Touch> &, double timestamp)
{
    const QPointF c = centroid();
    const QPointF delta = c - m_lastCentroid;
    m_lastCentroid = c;
    move(delta, timestamp);
}

void PanGestureRecognizer::touchesEnded(const QList<Touch> &ended, double timestamp)
{
    QPointF sum;
    int remaining = 0;
    for (const Touch &t : touches()) {
        if (std::none_of(ended.begin(), ended.end(), [&t](const Touch &e) { return e.id == t.id; })) {
            sum += t.globalPosition;
            ++remaining;
        }
    }
    if (remaining > 0) {
        // The centroid moves to the touches left; the translation must not jump with it.
        m_lastCentroid = sum / remaining;
        return;
    }
    addSample(timestamp);
    setState(state() == State::Possible ? State::Failed : State::Ended);
}

bool PanGestureRecognizer::beginScrolling(QPointF globalPosition, QPointF travel, double timestamp)
{
    if (state() != State::Possible || !touches().isEmpty())
        return false;
    m_scrolling = true;
    m_travel = travel;
    m_samples.clear();
    addSample(timestamp);
    setLastLocation(globalPosition);
    setState(State::Began);
    if (state() != State::Began) {
        m_scrolling = false;
        return false;
    }
    return true;
}

bool PanGestureRecognizer::scrolled(QPointF globalPosition, QPointF delta, ScrollPhase phase, double timestamp,
                                    Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier)
        return false;
    const bool active = m_scrolling && (state() == State::Began || state() == State::Changed);
    switch (phase) {
    case ScrollPhase::None:
        // A wheel's direction is known before its pan begins; the predicate may judge it.
        if (!active && !beginScrolling(globalPosition, delta, timestamp))
            return false;
        if (active)
            m_travel += delta;
        setLastLocation(globalPosition);
        m_translation += delta;
        setState(State::Changed);
        m_wheelEnd.start(kWheelEndMilliseconds);
        return true;
    case ScrollPhase::Began:
        return active || beginScrolling(globalPosition, delta, timestamp);
    case ScrollPhase::Changed:
        if (!active)
            return false;
        setLastLocation(globalPosition);
        move(delta, timestamp);
        return true;
    case ScrollPhase::Ended:
        if (!active)
            return false;
        addSample(timestamp);
        setState(State::Ended);
        return true;
    case ScrollPhase::Momentum:
        return false;
    }
    return false;
}

void PanGestureRecognizer::reset()
{
    m_wheelEnd.stop();
    m_scrolling = false;
    m_translation = {};
    m_travel = {};
    m_samples.clear();
}

} // namespace ui
