#pragma once
// An interaction controller that drives a navigation controller's custom transition by a
// fraction of its progress, as a finger moves: update it as the gesture goes, then finish it
// (the animations run on to the end) or cancel it (they run back and the navigation stays where
// it was). Before the navigation controller has started it, and after it has ended, every call is
// ignored, so a gesture can drive it without knowing whether a transition began.

#include "AnimatedTransitioning.h"

#include <QPointer>

namespace ui {

class PercentDrivenInteractiveTransition {
public:
    virtual ~PercentDrivenInteractiveTransition() = default;

    // For the navigation controller.
    void startInteractiveTransition(TransitionContext &transitionContext, double duration);

    void updateInteractiveTransition(double percentComplete);
    void finishInteractiveTransition();
    void cancelInteractiveTransition();

    // The last fraction applied, 0 to 1.
    double percentComplete() const { return m_context ? m_context->fractionComplete() : m_percentComplete; }
    bool isStarted() const { return m_started; }

private:
    QPointer<TransitionContext> m_context;
    bool m_started = false;
    double m_percentComplete = 0;
};

} // namespace ui
