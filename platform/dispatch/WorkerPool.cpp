#include "WorkerPool.h"

#include <QtGlobal>

#include <algorithm>
#include <system_error>

namespace dispatch::detail {
namespace {

thread_local bool tl_isWorker = false;

} // namespace

WorkerPool &WorkerPool::shared()
{
    static WorkerPool *const pool = new WorkerPool;
    return *pool;
}

WorkerPool::WorkerPool() : m_width(int(std::max(2u, std::thread::hardware_concurrency()))) {}

void WorkerPool::submit(Job job, Placement placement)
{
    std::lock_guard lock(m_mutex);
    if (tl_isWorker && placement == Placement::Auto)
        m_jobs.push_front(std::move(job));
    else
        m_jobs.push_back(std::move(job));
    wakeOrSpawn();
}

bool WorkerPool::blockBegin()
{
    if (!tl_isWorker)
        return false;
    std::lock_guard lock(m_mutex);
    ++m_blocked;
    wakeOrSpawn();
    return true;
}

void WorkerPool::unblock()
{
    std::lock_guard lock(m_mutex);
    --m_blocked;
}

void WorkerPool::wakeOrSpawn()
{
    if (m_jobs.empty() || running() >= m_width)
        return;
    if (m_idle > 0) {
        --m_idle;
        ++m_wakeTokens;
        m_workAvailable.notify_one();
        return;
    }
    if (m_threads < kMaxThreads)
        spawn();
}

void WorkerPool::spawn()
{
    reapFinished();
    ++m_threads;
    try {
        m_handles.emplace_back([this, generation = m_endGeneration] { work(generation); });
    } catch (const std::system_error &error) {
        --m_threads;
        // The jobs wait for a worker that is already running; with none there is no way on.
        if (m_threads == 0)
            qFatal("dispatch: cannot start a worker thread: %s", error.what());
        qWarning("dispatch: cannot start another worker thread: %s", error.what());
    }
}

void WorkerPool::work(unsigned generation)
{
    tl_isWorker = true;
    std::unique_lock lock(m_mutex);
    for (;;) {
        // Counted as running here; past the width (blocked workers came back) leave the jobs to
        // the others.
        if (!m_jobs.empty() && running() <= m_width) {
            Job job = std::move(m_jobs.front());
            m_jobs.pop_front();
            // More jobs wait: keep `width` workers on them.
            wakeOrSpawn();
            lock.unlock();
            job();
            job = nullptr; // release captures before taking the lock again
            lock.lock();
            continue;
        }
        if (m_endGeneration != generation)
            break;
        ++m_idle;
        const bool woken = m_workAvailable.wait_for(lock, kLinger, [&] { return m_wakeTokens > 0 || m_endGeneration != generation; });
        if (m_wakeTokens > 0) {
            --m_wakeTokens; // the waker took us off the idle count
            continue;
        }
        --m_idle;
        if (!woken || m_endGeneration != generation)
            break;
    }
    --m_threads;
    m_finished.push_back(std::this_thread::get_id());
    m_workerEnded.notify_all();
}

void WorkerPool::reapFinished()
{
    for (std::thread::id id : m_finished) {
        auto it = std::find_if(m_handles.begin(), m_handles.end(), [id](const std::thread &t) { return t.get_id() == id; });
        if (it != m_handles.end()) {
            it->join(); // its function has returned: only thread-local clean-up is left
            m_handles.erase(it);
        }
    }
    m_finished.clear();
}

bool WorkerPool::endWorkers(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    ++m_endGeneration;
    m_workAvailable.notify_all();
    const bool ended = m_workerEnded.wait_for(lock, timeout, [this] { return m_threads == 0; });
    reapFinished();
    return ended;
}

int WorkerPool::threadCount()
{
    std::lock_guard lock(m_mutex);
    return m_threads;
}

} // namespace dispatch::detail
