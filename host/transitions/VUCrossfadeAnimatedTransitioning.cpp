#include "VUCrossfadeAnimatedTransitioning.h"

#include <QGraphicsOpacityEffect>
#include <QPointer>
#include <QWidget>

void VUCrossfadeAnimatedTransitioning::animateTransition(ui::TransitionContext &context)
{
    const bool push = context.operation() != ui::NavigationOperation::Pop;
    QPointer<QWidget> top = context.viewForKey(push ? ui::TransitionContext::Key::To : ui::TransitionContext::Key::From);
    if (!top) {
        context.completeTransition();
        return;
    }
    QPointer<QGraphicsOpacityEffect> fade = new QGraphicsOpacityEffect(top);
    top->setGraphicsEffect(fade);
    context.addAnimations([fade, push](double progress) {
        if (fade)
            fade->setOpacity(push ? progress : 1 - progress);
    }, m_curve);
    context.addCompletion([&context, top] {
        if (top)
            top->setGraphicsEffect(nullptr);
        context.completeTransition();
    });
}
