#include "AnimatedTransitioning.h"

#include "DisplayLink.h"
#include "ViewController.h"

#include <algorithm>
#include <cmath>

namespace ui {

TransitionContext::TransitionContext(QWidget *containerView, ViewController *from, ViewController *to, NavigationOperation operation,
                                     const QString &description, Completion onComplete, QObject *parent)
    : QObject(parent), m_container(containerView), m_from(from), m_to(to), m_operation(operation), m_onComplete(std::move(onComplete)),
      m_pending(description)
{
}

TransitionContext::~TransitionContext() = default;

ViewController *TransitionContext::viewControllerForKey(Key key) const
{
    return key == Key::From ? m_from.data() : m_to.data();
}

QWidget *TransitionContext::viewForKey(Key key) const
{
    ViewController *controller = viewControllerForKey(key);
    return controller ? controller->view() : nullptr;
}

void TransitionContext::addAnimations(Animation animation, const QEasingCurve &curve)
{
    m_tracks.push_back({std::move(animation), curve});
}

void TransitionContext::addCompletion(Completion completion)
{
    m_completions.push_back(std::move(completion));
}

void TransitionContext::start(double duration)
{
    if (m_finished || m_complete)
        return;
    m_duration = duration;
    applyProgress(0);
    runTimeline(1);
}

void TransitionContext::startInteractive(double duration)
{
    if (m_finished || m_complete)
        return;
    m_duration = duration;
    m_interactive = true;
    applyProgress(0);
}

void TransitionContext::updateInteractiveTransition(double fraction)
{
    if (!m_interactive || m_finished || m_complete || m_link)
        return;
    applyProgress(std::clamp(fraction, 0.0, 1.0));
}

void TransitionContext::finishInteractiveTransition()
{
    if (m_interactive && !m_link)
        runTimeline(1);
}

void TransitionContext::cancelInteractiveTransition()
{
    if (!m_interactive || m_link || m_finished)
        return;
    m_cancelled = true;
    runTimeline(0);
}

void TransitionContext::runTimeline(double target)
{
    if (m_finished || m_complete)
        return;
    m_runFrom = m_fraction;
    m_runTo = target;
    const double duration = m_duration * std::abs(target - m_fraction);
    if (duration <= 0) {
        finishAnimations();
        return;
    }
    m_startTime = DisplayLink::currentTime();
    m_link = new DisplayLink([this, duration](DisplayLink &link) {
        const double t = std::clamp((link.timestamp() - m_startTime) / duration, 0.0, 1.0);
        // Frame times are sums of intervals: the frame due at the end may come a hair short of it.
        if (t >= 1 - 1e-9)
            finishAnimations();
        else
            applyProgress(m_runFrom + (m_runTo - m_runFrom) * t);
    }, this);
    m_link->schedule(m_container);
}

void TransitionContext::applyProgress(double fraction)
{
    m_fraction = fraction;
    for (const Track &track : m_tracks)
        track.animation(track.curve.valueForProgress(fraction));
}

void TransitionContext::finishAnimations()
{
    if (m_finished)
        return;
    m_finished = true;
    if (m_link)
        m_link->invalidate();
    applyProgress(m_cancelled ? 0 : 1);
    // Taken first: a completion may finish the transition, and with it this context.
    const std::vector<Completion> completions = std::move(m_completions);
    m_completions.clear();
    for (const Completion &completion : completions)
        completion();
}

void TransitionContext::completeTransition()
{
    if (m_complete)
        return;
    m_complete = true;
    m_pending.end();
    if (m_link)
        m_link->invalidate();
    if (m_onComplete)
        m_onComplete();
}

} // namespace ui
