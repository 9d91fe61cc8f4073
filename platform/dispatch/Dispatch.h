#pragma once
// Work queues in the style the module expects: the main queue (the Qt event loop), serial queues,
// one global concurrent queue, groups, semaphores and run-once.
//
// Serial queues own no thread: each is an ordered list of blocks that borrows a worker of one
// shared pool while it has work, so thousands of queues cost nothing. The pool runs about one
// worker per core; a worker that waits in Semaphore, Group or sync is replaced by another while
// it waits (up to a hard cap), so a task that waits on another queue (a composite image generator
// waiting for its children, a fill operation waiting for a movie) never starves the work it waits
// for. sync() on a serial or the global queue runs the block on the calling thread.

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
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
    // Runs the block and waits for it, after the blocks submitted before it. Calling it from a
    // task of this same serial queue is a deadlock the caller must avoid.
    virtual void sync(const Block &block);

protected:
    explicit Queue(std::string label) : m_label(std::move(label)) {}

private:
    std::string m_label;
};

using QueuePtr = std::shared_ptr<Queue>;

// Runs the block on the queue after a delay; the queue is kept alive until then. Delays of every
// queue but the main one share one timer thread.
void after(const QueuePtr &queue, std::chrono::milliseconds delay, Block block);

namespace detail {

// Threads waiting on a Semaphore or a Group, woken first come first served or all at once. A pool
// worker counts as blocked while it waits, and as running again from the moment it is woken, not
// only once it gets a core: otherwise the pool would start yet more work in its place.
class Waiters {
public:
    // Waits until woken (true) or until the time runs out (false); `lock` guards the owner's
    // state and is held on entry and on return.
    bool wait(std::unique_lock<std::mutex> &lock, std::optional<std::chrono::milliseconds> timeout);
    // False when nobody waits. Call with the owner's lock.
    bool wakeOne();
    void wakeAll();

private:
    struct Waiter;
    std::deque<Waiter *> m_waiting;
};

} // namespace detail

class Semaphore {
public:
    explicit Semaphore(long value = 0) : m_value(value) {}
    void signal();
    void wait();
    // False when the time ran out before a signal arrived.
    bool waitFor(std::chrono::milliseconds timeout);

private:
    std::mutex m_mutex;
    long m_value;
    detail::Waiters m_waiters;
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
    long m_count = 0;
    detail::Waiters m_waiters;
    std::vector<std::pair<QueuePtr, Block>> m_notifications;
};

// Ends the idle worker threads and the timer thread and waits, at most `timeout`, until no
// worker thread is left; false when some were still busy (they end as soon as they fall idle).
// Delayed blocks not yet due are dropped. Call it before the application object goes: a thread
// that used Qt must not end while Qt's globals are being destroyed. Queues keep working
// afterwards, starting new threads as needed.
bool endWorkerThreads(std::chrono::milliseconds timeout);

// Threads of the shared pool alive now (for tests and benchmarks).
int workerThreadCount();

// Run-once, as a plain alias for the standard facility.
using OnceFlag = std::once_flag;
template <typename F>
void once(OnceFlag &flag, F &&f) { std::call_once(flag, std::forward<F>(f)); }

} // namespace dispatch
