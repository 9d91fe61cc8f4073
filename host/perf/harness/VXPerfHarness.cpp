#include "VXPerfHarness.h"

#include "VXPerfTestRun.h"

#include "ui/AlertController.h"
#include "ui/VUNavigationController.h"
#include "ui/Window.h"

#include <QApplication>
#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcPerf, "vistra.perf")

VXPerfHarness::VXPerfHarness(QObject *parent) : QObject(parent) {}

VXPerfHarness::~VXPerfHarness() = default;

VXPerfHarness *VXPerfHarness::sharedHarness()
{
    static VXPerfHarness *harness = new VXPerfHarness(qApp);
    return harness;
}

ui::ViewController *VXPerfHarness::topmostViewController()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *window = qobject_cast<ui::Window *>(widget);
        if (!window || !window->isVisible() || !window->rootViewController())
            continue;
        ui::ViewController *top = window->rootViewController();
        while (top->presentedViewController())
            top = top->presentedViewController();
        return top;
    }
    return nullptr;
}

bool VXPerfHarness::runTest(const QString &name, const QVariantMap &options)
{
    if (m_running) {
        qCWarning(lcPerf).noquote() << "a test is running already; not starting" << name;
        return false;
    }
    if (!m_factory) {
        qCWarning(lcPerf).noquote() << "no test environment is registered; not starting" << name;
        return false;
    }
    VXPerfTestEnvironment *environment = m_factory();
    m_navigationController = new VUNavigationController(environment->environmentViewController());
    m_running = true;
    m_pending = ui::PendingWork(QStringLiteral("the performance test %1").arg(name));
    qCInfo(lcPerf).noquote() << "starting" << name;
    // Closed before the test could begin: there is nothing to measure.
    connect(m_navigationController, &QObject::destroyed, this, [this, name] {
        if (m_running && !m_run) {
            VXPerfResult result;
            result.test = name;
            result.note = QStringLiteral("the environment closed before the test began");
            end(result);
        }
    });

    m_presenter = topmostViewController();
    if (m_presenter) {
        m_presenter->presentViewController(m_navigationController, true, [this, name, options, environment] {
            begin(name, options, environment);
        });
        return true;
    }
    m_ownWindow = std::make_unique<ui::Window>();
    m_ownWindow->setWindowTitle(name);
    m_ownWindow->resize(HeadlessWindowSize);
    m_ownWindow->setRootViewController(m_navigationController);
    m_ownWindow->show();
    begin(name, options, environment);
    return true;
}

void VXPerfHarness::begin(const QString &name, const QVariantMap &options, VXPerfTestEnvironment *environment)
{
    m_run = new VXPerfTestRun(name, options, environment, m_navigationController, this);
    connect(m_run, &VXPerfTestRun::frameRecorded, this, &VXPerfHarness::frameRecorded);
    connect(m_run, &VXPerfTestRun::finished, this, &VXPerfHarness::end);
    m_run->start();
}

void VXPerfHarness::end(const VXPerfResult &result)
{
    if (m_run)
        m_run->deleteLater();
    m_run = nullptr;
    m_running = false;
    m_pending.end();
    qCInfo(lcPerf).noquote() << result.toText().trimmed();
    if (m_ownWindow) {
        // Hidden now, so the next run does not take it for the application's; deleted later, as
        // this runs inside the environment's own calls.
        m_ownWindow->hide();
        m_ownWindow.release()->deleteLater();
    } else if (m_presenter) {
        const QPointer<ui::ViewController> presenter = m_presenter;
        const bool alert = m_showsResultAlerts;
        const auto showResult = [presenter, result, alert] {
            if (!presenter || !alert)
                return;
            auto *resultAlert = new ui::AlertController(result.test, result.toSummary());
            resultAlert->addAction({QStringLiteral("OK"), ui::AlertAction::Style::Default, nullptr});
            presenter->presentViewController(resultAlert, true);
        };
        // Closed by hand already, or still there to close.
        if (m_navigationController && presenter->presentedViewController() == m_navigationController)
            presenter->dismissViewControllerAnimated(true, showResult);
        else
            showResult();
    }
    Q_EMIT testFinished(result);
}
