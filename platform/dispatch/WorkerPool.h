#pragma once
// The one pool of threads that runs every queue's work but the main queue's.
//
// At most `width` threads run work at a time (one per core, at least two). A worker that blocks in
// a wait of this library (Semaphore, Group, sync) stops counting as running while it waits, so a
// waiting composite generator lends its core to the children it waits for: the pool starts or
// wakes another worker if work is pending. A hard cap on the number of threads stops a runaway of
// blocked tasks. Idle workers linger a few seconds for more work, then end.
//
// Work that a worker submits goes to the front: it is most likely what that worker is about to
// wait for (a composite's children, a drawing's bands), so a replacement worker runs it next
// instead of starting yet another task that would block in turn.

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace dispatch::detail {

class WorkerPool {
public:
    using Job = std::function<void()>;

    static constexpr int kMaxThreads = 64;
    static constexpr std::chrono::seconds kLinger{5};

    // Never destroyed: workers may still be ending while statics go.
    static WorkerPool &shared();

    enum class Placement {
        Auto, // the front from a worker, the back from any other thread
        Back, // behind everything pending: a queue that yields to the others
    };
    void submit(Job job, Placement placement = Placement::Auto);

    // The calling thread is about to block in a wait of this library; true when it is a pool
    // worker, which then counts as blocked until unblock() is called on its behalf.
    bool blockBegin();
    void unblock();

    // Ends idle workers, and busy ones as soon as they fall idle; waits at most `timeout` until
    // none is left. False when some were still busy.
    bool endWorkers(std::chrono::milliseconds timeout);

    int threadCount();

private:
    WorkerPool();
    int running() const { return m_threads - m_idle - m_blocked; }
    // Makes sure pending jobs find a worker while fewer than `width` run. Call with the lock.
    void wakeOrSpawn();
    void spawn();
    void work(unsigned generation);
    // Joins threads whose function has returned. Call with the lock.
    void reapFinished();

    const int m_width;
    std::mutex m_mutex;
    std::condition_variable m_workAvailable;
    std::condition_variable m_workerEnded;
    std::deque<Job> m_jobs;
    int m_threads = 0;
    int m_idle = 0;
    int m_blocked = 0;
    // Idle workers handed a wake-up; they count as running from the moment they are chosen.
    int m_wakeTokens = 0;
    unsigned m_endGeneration = 0;
    std::vector<std::thread> m_handles;
    std::vector<std::thread::id> m_finished;
};

} // namespace dispatch::detail
