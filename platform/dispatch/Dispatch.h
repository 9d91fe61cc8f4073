#pragma once
// Work queues in the style the module expects: the main queue (the Qt event loop), serial queues,
// one global concurrent queue, groups, semaphores and run-once.
//
// Every serial queue runs on a thread of its own while it has work, and the global queue adds a
// worker whenever all of its workers are busy. Nothing here is a bounded pool, so a task that
// waits on another queue (a composite image generator waiting for its children, a fill operation
// waiting for a movie) can never starve the queue it is waiting for.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace dispatch {

using Block = std::function<void()>;

class Queue {
public:
    virtual ~Queue();

    // The queue that runs blocks on the Qt event loop's thread. Needs a QCoreApplication.
    static std::shared_ptr<Queue> main();
    // The process-wide concurrent queue of default priority.
    static std::shared_ptr<Queue> global();
    static std::shared_ptr<Queue> createSerial(std::string label);
    // The queue running the calling code: the main queue on the main thread, null on a thread
    // that no queue owns.
    static Queue *current();

    const std::string &label() const { return m_label; }
    virtual void async(Block block) = 0;
    // Runs the block and waits for it. Calling it from a task of this same serial queue is a
    // deadlock the caller must avoid; on the main queue from the main thread it runs inline.
    void sync(const Block &block);

protected:
    explicit Queue(std::string label) : m_label(std::move(label)) {}

private:
    std::string m_label;
};

using QueuePtr = std::shared_ptr<Queue>;

// Runs the block on the queue after a delay; the queue is kept alive until then.
void after(const QueuePtr &queue, std::chrono::milliseconds delay, Block block);

class Semaphore {
public:
    explicit Semaphore(long value = 0) : m_value(value) {}
    void signal();
    void wait();
    // False when the time ran out before a signal arrived.
    bool waitFor(std::chrono::milliseconds timeout);

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    long m_value;
};

// Tracks a set of tasks; notifies or wakes waiters when all have left.
class Group {
public:
    void enter();
    void leave();
    void async(Queue &queue, Block block);
    // Runs the block on the queue once the group is empty (at once if it is empty now).
    void notify(const QueuePtr &queue, Block block);
    void wait();
    bool waitFor(std::chrono::milliseconds timeout);

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    long m_count = 0;
    std::vector<std::pair<QueuePtr, Block>> m_notifications;
};

// Ends the idle worker threads of every queue and waits, at most `timeout`, until no worker
// thread is left; false when some were still busy. Call it before the application object goes:
// a thread that used Qt must not end while Qt's globals are being destroyed. Queues keep
// working afterwards, starting new threads as needed.
bool endWorkerThreads(std::chrono::milliseconds timeout);

// Run-once, as a plain alias for the standard facility.
using OnceFlag = std::once_flag;
template <typename F>
void once(OnceFlag &flag, F &&f) { std::call_once(flag, std::forward<F>(f)); }

} // namespace dispatch
