#include "playgrounds/activity/VUTesterTimedActivity.h"

#include <activity/VUActivity.h>
#include <dispatch/Dispatch.h>

#include <QPointer>

#include <algorithm>
#include <cmath>

void VUTesterRunTimedActivity(VUActivity *activity, const VUTesterTimedActivityOptions &options)
{
    // Signalled when the activity ends for any reason, so a sleeping step wakes at once.
    auto wake = std::make_shared<dispatch::Semaphore>();
    QObject::connect(activity, &VUActivity::ended, activity, [wake] { wake->signal(); });
    if (options.determinate) {
        activity->setProgress(0);
        activity->setMessage(QStringLiteral("Step 0 of %1").arg(std::max(1, options.numberOfSteps)));
    } else {
        activity->setMessage(QStringLiteral("Working…"));
    }

    QPointer<VUActivity> target(activity);
    const auto onMain = [target](auto report) {
        dispatch::Queue::main()->async([target, report] {
            if (target && target->isRunning())
                report(*target);
        });
    };
    dispatch::Queue::global()->async([options, wake, onMain, cancelled = activity->cancellationFlag()] {
        const int steps = std::max(1, options.numberOfSteps);
        const auto interval = std::chrono::milliseconds(qint64(std::llround(options.duration / steps * 1000)));
        for (int step = 1; step <= steps; ++step) {
            if (wake->waitFor(interval) || *cancelled)
                return;
            const double progress = double(step) / steps;
            if (options.determinate)
                onMain([progress, step, steps](VUActivity &activity) {
                    activity.setProgress(progress);
                    activity.setMessage(QStringLiteral("Step %1 of %2").arg(step).arg(steps));
                });
            if (options.fails && progress + 1e-9 >= options.failurePoint) {
                onMain([progress, step, steps](VUActivity &activity) {
                    activity.fail(QStringLiteral("Failed at step %1 of %2 (%3 %), as the settings ask.")
                                      .arg(step)
                                      .arg(steps)
                                      .arg(qRound(progress * 100)));
                });
                return;
            }
        }
        onMain([](VUActivity &activity) { activity.finish(); });
    });
}
