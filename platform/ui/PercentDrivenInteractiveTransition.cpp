#include "PercentDrivenInteractiveTransition.h"

namespace ui {

void PercentDrivenInteractiveTransition::startInteractiveTransition(TransitionContext &transitionContext, double duration)
{
    m_context = &transitionContext;
    m_started = true;
    transitionContext.startInteractive(duration);
}

void PercentDrivenInteractiveTransition::updateInteractiveTransition(double percentComplete)
{
    if (m_context)
        m_context->updateInteractiveTransition(percentComplete);
}

void PercentDrivenInteractiveTransition::finishInteractiveTransition()
{
    if (m_context) {
        m_percentComplete = 1;
        m_context->finishInteractiveTransition();
    }
}

void PercentDrivenInteractiveTransition::cancelInteractiveTransition()
{
    if (m_context) {
        m_percentComplete = 0;
        m_context->cancelInteractiveTransition();
    }
}

} // namespace ui
