#pragma once
// A navigation container for trying navigation transitions by hand: a horizontal pan that
// begins in the right half of the view pushes a screen made by the creation function, one that
// begins in the left half pops the top screen (when there is one to pop), and the transition
// follows the finger: a push completes as the finger travels 300 points left, a pop 300 points
// right. At release the direction decides: a push finishes only when the finger moves left (or
// not at all), a pop only when it moves right. Transitions are the host's crossfade unless an
// inherited answer says otherwise; between pans they run by themselves.

#include "shell/VUTesterExport.h"

#include <ui/VUNavigationController.h>

#include <functional>
#include <memory>

namespace ui {
class GestureRecognizer;
class PanGestureRecognizer;
}

class VUTESTER_EXPORT VUTesterTransitionNavigationController : public VUNavigationController, public ui::NavigationControllerDelegate {
    Q_OBJECT
public:
    // The travel that completes a transition, in points.
    static constexpr double kPanDistance = 300;

    explicit VUTesterTransitionNavigationController(QObject *parent = nullptr);

    const std::function<ui::ViewController *()> &pushedViewControllerCreationBlock() const { return m_pushedViewControllerCreationBlock; }
    void setPushedViewControllerCreationBlock(std::function<ui::ViewController *()> block) { m_pushedViewControllerCreationBlock = std::move(block); }

    const std::shared_ptr<ui::PercentDrivenInteractiveTransition> &_interactiveTransition() const { return m_interactiveTransition; }
    void _setInteractiveTransition(std::shared_ptr<ui::PercentDrivenInteractiveTransition> transition) { m_interactiveTransition = std::move(transition); }
    // Null until the view is loaded.
    ui::PanGestureRecognizer *panGestureRecognizer() const { return m_pan; }

    std::shared_ptr<ui::AnimatedTransitioning> animationControllerForOperation(ui::NavigationController *navigationController,
                                                                               ui::NavigationOperation operation, ui::ViewController *from,
                                                                               ui::ViewController *to) override;
    std::shared_ptr<ui::PercentDrivenInteractiveTransition> interactionControllerForAnimationController(
        ui::NavigationController *navigationController, ui::AnimatedTransitioning *animationController) override;

protected:
    void viewDidLoad() override;

private:
    void _handlePanGestureRecognizer(ui::GestureRecognizer *recognizer);

    std::function<ui::ViewController *()> m_pushedViewControllerCreationBlock;
    std::shared_ptr<ui::PercentDrivenInteractiveTransition> m_interactiveTransition;
    ui::PanGestureRecognizer *m_pan = nullptr;
};
