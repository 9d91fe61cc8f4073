#pragma once
// A navigation container: a stack of view controllers under a bar with a back button, the top
// controller's title and its bar button items. Pushes and pops may be animated; the delegate is
// told before each change, and may answer an animated one with an animation of its own
// (AnimatedTransitioning.h) instead of the container's slide; either runs on the display's frame
// timer, so DisplayLink::ManualStepping steps it. Below the stack, a toolbar shows the top
// controller's toolbar items while the toolbar is not hidden (it is hidden at first) and the top
// controller has items. An interaction controller from the delegate drives an animation by hand;
// a cancelled interactive transition leaves the stack as it was.

#include "AnimatedTransitioning.h"
#include "PercentDrivenInteractiveTransition.h"
#include "ViewController.h"

#include <QList>
#include <QPointer>

#include <memory>

class QLabel;
class QHBoxLayout;
class QStackedWidget;
class QToolButton;

namespace ui {

class NavigationController;

class NavigationControllerDelegate {
public:
    virtual ~NavigationControllerDelegate() = default;
    virtual void willShowViewController(NavigationController *navigationController, ViewController *viewController, bool animated) {}
    virtual void didShowViewController(NavigationController *navigationController, ViewController *viewController, bool animated) {}
    // Asked for each animated push or pop; null keeps the container's own slide.
    virtual std::shared_ptr<AnimatedTransitioning> animationControllerForOperation(NavigationController *navigationController,
                                                                                   NavigationOperation operation,
                                                                                   ViewController *from, ViewController *to)
    {
        return nullptr;
    }
    // Asked after the animation controller: an interaction controller makes the transition follow
    // it (a finger) instead of running by itself; null runs it by itself.
    virtual std::shared_ptr<PercentDrivenInteractiveTransition> interactionControllerForAnimationController(
        NavigationController *navigationController, AnimatedTransitioning *animationController)
    {
        return nullptr;
    }
};

class NavigationController : public ViewController {
    Q_OBJECT
public:
    using Operation = NavigationOperation;

    explicit NavigationController(ViewController *rootViewController = nullptr, QObject *parent = nullptr);
    ~NavigationController() override;

    NavigationController *navigationController() const override { return const_cast<NavigationController *>(this); }

    // The container takes ownership of pushed controllers; popped ones are deleted later unless
    // the caller takes them back with setParent.
    void pushViewController(ViewController *controller, bool animated);
    ViewController *popViewControllerAnimated(bool animated);
    void popToRootViewControllerAnimated(bool animated);
    void setViewControllers(const QList<ViewController *> &controllers, bool animated);

    const QList<ViewController *> &viewControllers() const { return m_stack; }
    ViewController *topViewController() const { return m_stack.isEmpty() ? nullptr : m_stack.last(); }
    Operation lastOperation() const { return m_lastOperation; }
    bool isTransitioning() const;

    bool isToolbarHidden() const { return m_toolbarHidden; }
    void setToolbarHidden(bool hidden);
    // The toolbar's widget, shown only while it has something to show; null before the view loads.
    QWidget *toolbar() const { return m_toolbar; }

    NavigationControllerDelegate *delegate() const { return m_delegate; }
    void setDelegate(NavigationControllerDelegate *delegate) { m_delegate = delegate; }

Q_SIGNALS:
    void didShowViewController(ui::ViewController *controller);

protected:
    QWidget *loadView() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidDisappear(bool animated) override;

private:
    void transition(ViewController *from, ViewController *to, Operation operation, bool animated, const QList<ViewController *> &removed);
    void startAnimatedTransition(std::shared_ptr<AnimatedTransitioning> animator);
    void returnTransitionViews();
    void revertCancelledTransition();
    void finishTransition();
    void updateBar();
    void updateToolbar();
    bool isOnScreen() const;

    QList<ViewController *> m_stack;
    NavigationControllerDelegate *m_delegate = nullptr;
    Operation m_lastOperation = Operation::None;

    QStackedWidget *m_pages = nullptr;
    QToolButton *m_backButton = nullptr;
    QLabel *m_titleLabel = nullptr;
    QHBoxLayout *m_leftItems = nullptr;
    QHBoxLayout *m_rightItems = nullptr;
    QWidget *m_toolbar = nullptr;
    QHBoxLayout *m_toolbarItems = nullptr;
    bool m_toolbarHidden = true;
    QPointer<ViewController> m_toolbarOwner;
    QList<QPointer<QWidget>> m_toolbarCustomViews;

    struct Transition;
    Transition *m_transition = nullptr;
};

} // namespace ui
