#pragma once
// Pushes a controller onto a navigation controller and pops it again, animated, a number of times
// or until a time limit, with a given transition (null: the navigation controller's own). While it
// runs it is the navigation controller's delegate; it keeps the popped controller for the next
// push, and hands the delegate back when it is done.

#include "ui/NavigationController.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class VXPerfTransitionDriver : public QObject, public ui::NavigationControllerDelegate {
    Q_OBJECT
public:
    VXPerfTransitionDriver(ui::NavigationController *navigationController, ui::ViewController *destination,
                           std::shared_ptr<ui::AnimatedTransitioning> transition, int iterations, double maximumDuration,
                           std::function<void(int pairs)> finished, QObject *parent = nullptr);
    ~VXPerfTransitionDriver() override;

    void start();
    int completedPairs() const { return m_pairs; }

    void didShowViewController(ui::NavigationController *navigationController, ui::ViewController *viewController, bool animated) override;
    std::shared_ptr<ui::AnimatedTransitioning> animationControllerForOperation(ui::NavigationController *, ui::NavigationOperation,
                                                                               ui::ViewController *, ui::ViewController *) override
    {
        return m_transition;
    }

private:
    void finish();

    QPointer<ui::NavigationController> m_navigationController;
    QPointer<ui::ViewController> m_destination;
    std::shared_ptr<ui::AnimatedTransitioning> m_transition;
    int m_iterations;
    double m_maximumDuration;
    std::function<void(int)> m_finished;
    ui::NavigationControllerDelegate *m_previousDelegate = nullptr;
    double m_startTime = 0;
    int m_pairs = 0;
    bool m_running = false;
};
