#include "VUCrossfadeAnimatedTransitioning.h"

#include <QGraphicsOpacityEffect>
#include <QPointer>
#include <QWidget>

void VUCrossfadeAnimatedTransitioning::animateTransition(ui::TransitionContext &context)
{
    const bool push = context.operation() != ui::NavigationOperation::Pop;
    QWidget *top = context.viewForKey(push ? ui::TransitionContext::Key::To : ui::TransitionContext::Key::From);
    QPointer<QGraphicsOpacityEffect> fade = new QGraphicsOpacityEffect(top);
    top->setGraphicsEffect(fade);
    context.addAnimations([fade, push](double progress) {
        if (fade)
            fade->setOpacity(push ? progress : 1 - progress);
    }, QEasingCurve::Linear);
    context.addCompletion([&context, top = QPointer<QWidget>(top)] {
        if (top)
            top->setGraphicsEffect(nullptr);
        context.completeTransition();
    });
}
