#include "playgrounds/activity/VUTesterActivityPlaygroundViewController.h"

#include "playgrounds/VUTesterPlaygroundViews.h"
#include "playgrounds/activity/VUTesterTimedActivity.h"

#include <activity/VUActivityController.h>
#include <activity/VUActivityProgressView.h>

#include "ui/DisplayLink.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace {
// The most lines the log keeps on screen.
constexpr int kLogLines = 12;
} // namespace

VUTesterActivityPlaygroundViewController::VUTesterActivityPlaygroundViewController(VUTesterActivitySettings *settings, QObject *parent)
    : ui::ViewController(parent)
    , m_settings(settings)
{
    setTitle(QStringLiteral("Activity Controller"));
}

QWidget *VUTesterActivityPlaygroundViewController::loadView()
{
    auto *view = new QWidget;
    auto *layout = new QVBoxLayout(view);
    layout->setContentsMargins(16, 12, 16, 12);
    auto *start = new QPushButton(QStringLiteral("Start Activity"));
    connect(start, &QPushButton::clicked, this, [this] { startActivity(); });
    layout->addWidget(start);

    // Still activities, one in each state a card can show.
    layout->addWidget(VUTesterPlaygroundHeading(QStringLiteral("Every state")));
    const auto still = [&](const QString &title, auto setUp) {
        auto *activity = new VUActivity(title, this);
        setUp(*activity);
        m_gallery.append(activity);
        layout->addWidget(new VUActivityProgressView(activity));
    };
    still(QStringLiteral("Importing 240 Photos"), [](VUActivity &a) { a.setProgress(0.4); a.setMessage(QStringLiteral("96 of 240")); });
    still(QStringLiteral("Preparing Movie"), [](VUActivity &a) { a.setMessage(QStringLiteral("Working…")); });
    still(QStringLiteral("Sharing 3 Items"), [](VUActivity &a) { a.setProgress(0.6); a.cancel(); });
    still(QStringLiteral("Saving to Library"), [](VUActivity &a) { a.setProgress(0.3); a.fail(QStringLiteral("The library is read-only.")); });
    still(QStringLiteral("Exporting Album"), [](VUActivity &a) { a.finish(); });

    layout->addWidget(VUTesterPlaygroundHeading(QStringLiteral("Activities")));
    m_log = new VUTesterEventLogLabel(QStringLiteral("None yet: tap Start Activity."), kLogLines);
    layout->addWidget(m_log, 1);

    m_controller = new VUActivityController(view, this);
    connect(m_controller, &VUActivityController::activityEnded, this, [this](VUActivity *activity, VUActivity::State state) {
        const double seconds = ui::DisplayLink::monotonicTime() - activity->property("startTime").toDouble();
        switch (state) {
        case VUActivity::State::Finished:
            m_log->addLine(QStringLiteral("%1: finished after %2 s").arg(activity->title()).arg(seconds, 0, 'f', 1));
            break;
        case VUActivity::State::Cancelled:
            m_log->addLine(QStringLiteral("%1: cancelled at %2 %").arg(activity->title()).arg(qRound(activity->progress() * 100)));
            break;
        case VUActivity::State::Failed:
            m_log->addLine(QStringLiteral("%1: %2").arg(activity->title(), activity->errorDescription()));
            break;
        case VUActivity::State::Running:
            break;
        }
    });
    return view;
}

VUActivity *VUTesterActivityPlaygroundViewController::startActivity()
{
    view();
    VUActivity *activity = m_controller->beginActivity(m_settings->activityTitle(), m_settings->cancellable());
    activity->setProperty("startTime", ui::DisplayLink::monotonicTime());
    m_log->addLine(QStringLiteral("%1: started").arg(activity->title()));
    VUTesterTimedActivityOptions options;
    options.duration = m_settings->duration();
    options.numberOfSteps = int(m_settings->numberOfSteps());
    options.determinate = m_settings->determinate();
    options.fails = m_settings->fails();
    options.failurePoint = m_settings->failurePoint();
    VUTesterRunTimedActivity(activity, options);
    return activity;
}

const QStringList &VUTesterActivityPlaygroundViewController::log() const
{
    return m_log->lines();
}

QList<ui::TappableRow> VUTesterActivityPlaygroundViewController::tappableRows()
{
    return {{QString(), QStringLiteral("Start Activity"), [this] { startActivity(); }}};
}
