#include "Settle.h"

#include <QAbstractAnimation>
#include <QEventLoop>
#include <QTimer>

#include <atomic>
#include <map>
#include <mutex>

namespace ui {
namespace {

struct Registry {
    std::mutex mutex;
    std::map<quint64, QString> pending; // ordered by start, so descriptions read oldest first
    quint64 nextId = 1;
    // Counts every start, so a wait can tell "nothing pending" from "something came and went".
    std::atomic<quint64> starts{0};

    quint64 add(QString description)
    {
        std::lock_guard lock(mutex);
        const quint64 id = nextId++;
        pending.emplace(id, std::move(description));
        ++starts;
        return id;
    }
    void remove(quint64 id)
    {
        std::lock_guard lock(mutex);
        pending.erase(id);
    }
};

Registry &registry()
{
    static Registry instance;
    return instance;
}

} // namespace

struct PendingWork::Record {
    explicit Record(QString description) : id(registry().add(std::move(description))) {}
    ~Record() { end(); }
    void end()
    {
        if (!ended.exchange(true))
            registry().remove(id);
    }
    const quint64 id;
    std::atomic<bool> ended{false};
};

PendingWork::PendingWork(QString description)
    : m_record(std::make_shared<Record>(std::move(description)))
{
}

void PendingWork::end()
{
    if (m_record)
        m_record->end();
}

bool PendingWork::isActive() const
{
    return m_record && !m_record->ended;
}

int Settle::pendingCount()
{
    std::lock_guard lock(registry().mutex);
    return int(registry().pending.size());
}

QStringList Settle::pendingDescriptions()
{
    std::lock_guard lock(registry().mutex);
    QStringList descriptions;
    for (const auto &[id, description] : registry().pending)
        descriptions << description;
    return descriptions;
}

void Settle::track(QAbstractAnimation *animation, const QString &description)
{
    PendingWork work(description);
    QObject::connect(animation, &QAbstractAnimation::stateChanged, animation, [work](QAbstractAnimation::State state) mutable {
        if (state == QAbstractAnimation::Stopped)
            work.end();
    });
    // An animation deleted while running never reports that it stopped.
    QObject::connect(animation, &QObject::destroyed, [work]() mutable { work.end(); });
}

void Settle::after(std::chrono::milliseconds delay, QObject *context, std::function<void()> work, const QString &description)
{
    // A child timer goes with the context at once, and the function, holding the pending work,
    // with it (a plain single-shot timer would keep it until deferred deletion).
    auto *timer = new QTimer(context);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, pending = PendingWork(description), work = std::move(work)]() mutable {
        work();
        pending.end();
        timer->deleteLater();
    });
    timer->start(delay);
}

bool Settle::waitUntilSettled(std::chrono::milliseconds timeout, QStringList *stillPending, std::chrono::milliseconds quiet)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + timeout;
    QEventLoop loop;
    const auto runEventsFor = [&loop](std::chrono::milliseconds duration) {
        QTimer::singleShot(duration, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    };
    for (;;) {
        const quint64 starts = registry().starts;
        if (pendingCount() == 0) {
            // Handling the events queued so far may start more work (a layout that requests
            // images, a timer that starts an animation): settled only if the quiet spell stays so.
            runEventsFor(quiet);
            if (pendingCount() == 0 && registry().starts == starts)
                return true;
        } else {
            runEventsFor(std::chrono::milliseconds(5));
        }
        if (Clock::now() >= deadline) {
            if (stillPending)
                *stillPending = pendingDescriptions();
            return false;
        }
    }
}

} // namespace ui
