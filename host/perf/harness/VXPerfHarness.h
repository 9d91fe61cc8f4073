#pragma once
// The application's performance harness: its test definitions and the application-level entry
// that runs a named test, as the Vexo screen's rows do and as 'vistra-tester perf run' does.
//
// A run shows a new test environment (from the environment factory the tester module registers)
// inside a navigation controller: presented over the screen of the first visible window that has
// a root view controller, or, with no such window (headless), as the root of a phone-sized window
// of its own. When the test is done the environment goes, the result is logged and signalled,
// and, over a window, shown in an alert. One test runs at a time.

#include "VXPerfResult.h"
#include "VXPerfTestDefinitions.h"
#include "VXPerfTestEnvironment.h"

#include "ui/Settle.h"

#include <QObject>
#include <QPointer>
#include <QSize>

#include <functional>
#include <memory>

class VXPerfTestRun;

namespace ui {
class NavigationController;
class ViewController;
class Window;
} // namespace ui

class VXPerfHarness : public QObject {
    Q_OBJECT
public:
    using EnvironmentFactory = std::function<VXPerfTestEnvironment *()>;
    // The size of the window a headless run makes.
    static constexpr QSize HeadlessWindowSize{390, 844};

    static VXPerfHarness *sharedHarness();
    ~VXPerfHarness() override;

    void setEnvironmentFactory(EnvironmentFactory factory) { m_factory = std::move(factory); }
    bool hasEnvironmentFactory() const { return bool(m_factory); }

    QList<QVariantMap> vexo_testDefinitions() const { return ::vexo_testDefinitions(); }
    // Starts the test; false when one is running already or there is no environment factory.
    bool runTest(const QString &name, const QVariantMap &options);
    // From runTest until the result is out.
    bool isRunning() const { return m_running; }
    // Whether a run over a window ends with an alert showing its result (on by default).
    void setShowsResultAlerts(bool shows) { m_showsResultAlerts = shows; }

Q_SIGNALS:
    void frameRecorded();
    void testFinished(const VXPerfResult &result);

private:
    explicit VXPerfHarness(QObject *parent = nullptr);
    void begin(const QString &name, const QVariantMap &options, VXPerfTestEnvironment *environment);
    void end(const VXPerfResult &result);
    static ui::ViewController *topmostViewController();

    EnvironmentFactory m_factory;
    VXPerfTestRun *m_run = nullptr;
    QPointer<ui::NavigationController> m_navigationController;
    QPointer<ui::ViewController> m_presenter;
    std::unique_ptr<ui::Window> m_ownWindow;
    bool m_showsResultAlerts = true;
    bool m_running = false;
    // A screen running a test is not settled until the test is over.
    ui::PendingWork m_pending;
};
