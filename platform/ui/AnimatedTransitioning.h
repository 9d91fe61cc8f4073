#pragma once
// Custom navigation transitions. A navigation controller's delegate may answer an animated push
// or pop with an animation controller. The navigation controller then puts both controllers'
// views in a container above its pages, the incoming one on top for a push and the outgoing one
// on top for a pop, both filling the container, and hands the animation controller a context.
//
// The animation controller adds animations to the context: functions of the transition's
// progress, from 0 to 1. The context runs them on a timeline over the transition's duration, one
// step per display frame (so DisplayLink::ManualStepping steps them), then runs the completions
// the animation controller added; one of those calls completeTransition, which returns the views
// to the navigation controller's pages. Since animations depend on progress alone, anything that
// moves the timeline moves them alike. The container's own slide is such an animation controller.
//
// An interactive transition (PercentDrivenInteractiveTransition) moves the timeline by hand
// instead: from the finger's progress, then on to the end when finished or back to the start
// when cancelled. A cancelled transition reports transitionWasCancelled, and the navigation
// controller puts its stack back as it was.

#include "Settle.h"

#include <QEasingCurve>
#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

class QWidget;

namespace ui {

class DisplayLink;
class ViewController;

enum class NavigationOperation { None, Push, Pop };

class TransitionContext;

class AnimatedTransitioning {
public:
    virtual ~AnimatedTransitioning() = default;
    // In seconds.
    virtual double transitionDuration(const TransitionContext &context) const = 0;
    // Prepares the views and adds the animations and a completion that calls completeTransition.
    virtual void animateTransition(TransitionContext &context) = 0;
    // The navigation controller has finished the transition.
    virtual void animationEnded() {}
};

class TransitionContext : public QObject {
    Q_OBJECT
public:
    enum class Key { From, To };
    using Animation = std::function<void(double progress)>;
    using Completion = std::function<void()>;

    // The transition is pending work (Settle.h), under `description`, until it completes.
    TransitionContext(QWidget *containerView, ViewController *from, ViewController *to, NavigationOperation operation,
                      const QString &description, Completion onComplete, QObject *parent = nullptr);
    ~TransitionContext() override;

    QWidget *containerView() const { return m_container; }
    ViewController *viewControllerForKey(Key key) const;
    QWidget *viewForKey(Key key) const;
    NavigationOperation operation() const { return m_operation; }

    // `animation` gets the progress through `curve`; it runs once at 0 when the timeline starts.
    void addAnimations(Animation animation, const QEasingCurve &curve = QEasingCurve::InOutQuad);
    // Runs once the timeline has reached its end.
    void addCompletion(Completion completion);
    // The timeline's linear progress.
    double fractionComplete() const { return m_fraction; }
    bool animationsFinished() const { return m_finished; }
    // The transition is over: the navigation controller takes its views back.
    void completeTransition();
    bool transitionWasCancelled() const { return m_cancelled; }
    bool isInteractive() const { return m_interactive; }
    bool isComplete() const { return m_complete; }

    // For the navigation controller: runs the timeline over `duration` seconds from the next frame.
    void start(double duration);
    // For the navigation controller: the animations start at 0 and wait for the interaction.
    void startInteractive(double duration);
    // For interaction controllers: moves the timeline to `fraction` (clamped to 0 to 1), then,
    // once finished or cancelled, runs it on to the end or back to the start at its own pace.
    void updateInteractiveTransition(double fraction);
    void finishInteractiveTransition();
    void cancelInteractiveTransition();
    // Jumps every animation to its end and runs the completions (an interrupted transition).
    void finishAnimations();

private:
    void applyProgress(double fraction);
    // Runs the timeline from where it is to `target` over the matching part of the duration.
    void runTimeline(double target);

    struct Track {
        Animation animation;
        QEasingCurve curve;
    };
    QPointer<QWidget> m_container;
    QPointer<ViewController> m_from, m_to;
    NavigationOperation m_operation;
    Completion m_onComplete;
    PendingWork m_pending;
    std::vector<Track> m_tracks;
    std::vector<Completion> m_completions;
    DisplayLink *m_link = nullptr;
    double m_startTime = 0;
    double m_duration = 0;
    double m_fraction = 0;
    double m_runFrom = 0;
    double m_runTo = 1;
    bool m_finished = false;
    bool m_complete = false;
    bool m_interactive = false;
    bool m_cancelled = false;
};

} // namespace ui
