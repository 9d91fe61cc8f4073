#include "playgrounds/transition/VUTesterTransitionNavigationController.h"

#include <transitions/VUCrossfadeAnimatedTransitioning.h>

#include "ui/PanGestureRecognizer.h"

#include <QWidget>

VUTesterTransitionNavigationController::VUTesterTransitionNavigationController(QObject *parent)
    : VUNavigationController(nullptr, parent)
{
    setDelegate(this);
}

void VUTesterTransitionNavigationController::viewDidLoad()
{
    VUNavigationController::viewDidLoad();
    m_pan = new ui::PanGestureRecognizer(view());
    connect(m_pan, &ui::GestureRecognizer::action, this, &VUTesterTransitionNavigationController::_handlePanGestureRecognizer);
}

std::shared_ptr<ui::AnimatedTransitioning> VUTesterTransitionNavigationController::animationControllerForOperation(
    ui::NavigationController *navigationController, ui::NavigationOperation operation, ui::ViewController *from, ui::ViewController *to)
{
    if (auto inherited = ui::NavigationControllerDelegate::animationControllerForOperation(navigationController, operation, from, to))
        return inherited;
    return std::make_shared<VUCrossfadeAnimatedTransitioning>();
}

std::shared_ptr<ui::PercentDrivenInteractiveTransition> VUTesterTransitionNavigationController::interactionControllerForAnimationController(
    ui::NavigationController *navigationController, ui::AnimatedTransitioning *animationController)
{
    if (auto inherited = ui::NavigationControllerDelegate::interactionControllerForAnimationController(navigationController, animationController))
        return inherited;
    return m_interactiveTransition;
}

void VUTesterTransitionNavigationController::_handlePanGestureRecognizer(ui::GestureRecognizer *recognizer)
{
    auto *pan = static_cast<ui::PanGestureRecognizer *>(recognizer);
    switch (pan->state()) {
    case ui::GestureRecognizer::State::Began: {
        const double x = pan->locationInView(view()).x();
        if (x < view()->rect().center().x()) {
            if (viewControllers().size() >= 2) {
                _setInteractiveTransition(std::make_shared<ui::PercentDrivenInteractiveTransition>());
                popViewControllerAnimated(true);
            }
        } else {
            _setInteractiveTransition(std::make_shared<ui::PercentDrivenInteractiveTransition>());
            pushViewController(m_pushedViewControllerCreationBlock ? m_pushedViewControllerCreationBlock() : nullptr, true);
        }
        break;
    }
    case ui::GestureRecognizer::State::Changed: {
        const double tx = pan->translation().x();
        const double fraction = lastOperation() == ui::NavigationOperation::Push ? -(tx / kPanDistance) : tx / kPanDistance;
        if (m_interactiveTransition)
            m_interactiveTransition->updateInteractiveTransition(fraction);
        break;
    }
    case ui::GestureRecognizer::State::Ended:
    case ui::GestureRecognizer::State::Cancelled: {
        const bool movingRight = pan->velocity().x() > 0;
        const bool pushing = lastOperation() == ui::NavigationOperation::Push;
        if (m_interactiveTransition) {
            if (movingRight == pushing)
                m_interactiveTransition->cancelInteractiveTransition();
            else
                m_interactiveTransition->finishInteractiveTransition();
        }
        _setInteractiveTransition(nullptr);
        break;
    }
    default:
        break;
    }
}
