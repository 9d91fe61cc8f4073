#pragma once
// One run of a performance test in an environment that is already on screen inside a navigation
// controller: asks the environment for its scene, drives it (a scroll, or pushes and pops) while
// recording frames, and reports the result once.
//
// Options as in VXPerfTestDefinitions.h; a definition with "transition" is a transition test and
// any other a scroll test, whose environment decides whether its "content" names a scene.

#include "VXPerfResult.h"
#include "VXPerfTestEnvironment.h"

#include <QObject>
#include <QPointer>

#include <memory>

class VXPerfFrameRecorder;
class VXPerfScrollDriver;
class VXPerfTransitionDriver;

namespace ui {
class NavigationController;
}

class VXPerfTestRun : public QObject {
    Q_OBJECT
public:
    // Speed and length of a scroll test, and pairs of a transition test, where the options do not say.
    static constexpr double DefaultDuration = 4;
    static constexpr double DefaultSpeed = 2500;
    static constexpr int DefaultIterations = 5;

    VXPerfTestRun(const QString &name, const QVariantMap &options, VXPerfTestEnvironment *environment,
                  ui::NavigationController *navigationController, QObject *parent = nullptr);
    ~VXPerfTestRun() override;

    void start();
    const QString &name() const { return m_name; }
    bool isFinished() const { return m_finished; }

Q_SIGNALS:
    void frameRecorded();
    void finished(const VXPerfResult &result);

private:
    void beginScrolling(ui::ScrollView *scrollView);
    void beginTransitions(ui::ViewController *destination, std::shared_ptr<ui::AnimatedTransitioning> transition);
    // Ends the run; the result follows once the frame under way, if any, is recorded.
    void finish(const QString &note = QString());
    void report(const QString &note);
    double option(const QString &key, double fallback) const;

    QString m_name;
    QVariantMap m_options;
    VXPerfTestEnvironment *m_environment;
    QPointer<ui::NavigationController> m_navigationController;
    VXPerfFrameRecorder *m_recorder;
    VXPerfScrollDriver *m_scrollDriver = nullptr;
    VXPerfTransitionDriver *m_transitionDriver = nullptr;
    bool m_finished = false;
};
