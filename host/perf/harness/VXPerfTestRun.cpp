#include "VXPerfTestRun.h"

#include "VXPerfFrameRecorder.h"
#include "VXPerfScrollDriver.h"
#include "VXPerfTestDefinitions.h"
#include "VXPerfTransitionDriver.h"
#include "VXProcessMemory.h"

#include "ui/NavigationController.h"
#include "ui/ScrollView.h"

#include <QPointer>

#include <limits>

VXPerfTestRun::VXPerfTestRun(const QString &name, const QVariantMap &options, VXPerfTestEnvironment *environment,
                             ui::NavigationController *navigationController, QObject *parent)
    : QObject(parent), m_name(name), m_options(options), m_environment(environment), m_navigationController(navigationController),
      m_recorder(new VXPerfFrameRecorder(navigationController->view(), this))
{
    connect(m_recorder, &VXPerfFrameRecorder::frameRecorded, this, &VXPerfTestRun::frameRecorded);
    // Closed by hand (its Done button) or with its window: what was recorded so far is the result.
    connect(navigationController, &QObject::destroyed, this, [this] { finish(QStringLiteral("the environment closed before the test ended")); });
}

VXPerfTestRun::~VXPerfTestRun() = default;

double VXPerfTestRun::option(const QString &key, double fallback) const
{
    bool ok = false;
    const double value = m_options.value(key).toDouble(&ok);
    return ok && value > 0 ? value : fallback;
}

void VXPerfTestRun::start()
{
    VXResetPeakResidentBytes();
    // The environment's handlers may come after this run has gone (a window closed early).
    QPointer<VXPerfTestRun> self(this);
    if (m_options.contains(VXPerfTransitionKey)) {
        m_environment->prepareForTransitionTestWithName(m_name, m_options, [self](ui::ViewController *destination, auto transition) {
            if (self)
                self->beginTransitions(destination, std::move(transition));
        });
    } else {
        m_environment->prepareForScrollTestWithName(m_name, m_options, [self](ui::ScrollView *scrollView) {
            if (self)
                self->beginScrolling(scrollView);
        });
    }
}

void VXPerfTestRun::beginScrolling(ui::ScrollView *scrollView)
{
    if (m_finished)
        return;
    if (!scrollView) {
        finish(QStringLiteral("the environment gave no view to scroll"));
        return;
    }
    const double range = scrollView->maximumContentOffset().y() - scrollView->minimumContentOffset().y();
    const QString note = range > 0 ? QString() : QStringLiteral("the content fits its view: nothing scrolled");
    m_recorder->start();
    m_scrollDriver = new VXPerfScrollDriver(scrollView, option(VXPerfSpeedKey, DefaultSpeed), option(VXPerfDurationKey, DefaultDuration),
                                            [this, note] { finish(note); }, this);
    m_scrollDriver->start();
}

void VXPerfTestRun::beginTransitions(ui::ViewController *destination, std::shared_ptr<ui::AnimatedTransitioning> transition)
{
    if (m_finished)
        return;
    m_recorder->start();
    m_transitionDriver = new VXPerfTransitionDriver(m_navigationController, destination, std::move(transition),
                                                    int(option(VXPerfIterationsKey, DefaultIterations)),
                                                    option(VXPerfDurationKey, std::numeric_limits<double>::infinity()),
                                                    [this](int) { finish(); }, this);
    m_transitionDriver->start();
}

void VXPerfTestRun::finish(const QString &note)
{
    if (m_finished)
        return;
    m_finished = true;
    connect(m_recorder, &VXPerfFrameRecorder::stopped, this, [this, note] { report(note); });
    if (m_recorder->isRecording())
        m_recorder->stop();
    else
        report(note);
}

void VXPerfTestRun::report(const QString &note)
{
    VXPerfResult result = VXPerfResult::fromFrames(m_name, m_recorder->timestamps(), m_recorder->work(), m_recorder->refreshInterval());
    result.peakRssBytes = VXPeakResidentBytes();
    result.peakWidgets = m_recorder->peakWidgets();
    result.note = note;
    Q_EMIT finished(result);
}
