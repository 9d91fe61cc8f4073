#pragma once
// When is a screen settled? When nothing it started is still under way: no animation running, no
// requested image undelivered, no delayed work waiting to run. Whatever starts such work holds a
// PendingWork for as long as it lasts; waitUntilSettled() runs the event loop until none is left,
// so a picture of the screen (or a test's check) sees its final state.

#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

class QAbstractAnimation;
class QObject;

namespace ui {

// One piece of outstanding work. Copies share it: the work ends when end() is called on any copy
// or when the last copy goes, so a completion handler can carry it by value. Any thread.
class PendingWork {
public:
    // Holds nothing.
    PendingWork() = default;
    explicit PendingWork(QString description);

    void end();
    bool isActive() const;

private:
    struct Record;
    std::shared_ptr<Record> m_record;
};

class Settle {
public:
    // What is under way now (any thread).
    static int pendingCount();
    static QStringList pendingDescriptions();

    // Counts the animation as pending until it stops or is destroyed. Main thread.
    static void track(QAbstractAnimation *animation, const QString &description);
    // Runs `work` on the main thread after `delay`, pending until then. Nothing runs, and nothing
    // stays pending, once `context` is destroyed.
    static void after(std::chrono::milliseconds delay, QObject *context, std::function<void()> work, const QString &description);

    // Runs the main event loop until nothing is pending and nothing new has started for `quiet`
    // (posted events and zero-time timers are handled meanwhile). False when `timeout` passes first;
    // `stillPending` then names what was still under way. Main thread.
    static bool waitUntilSettled(std::chrono::milliseconds timeout, QStringList *stillPending = nullptr,
                                 std::chrono::milliseconds quiet = std::chrono::milliseconds(50));
};

} // namespace ui
