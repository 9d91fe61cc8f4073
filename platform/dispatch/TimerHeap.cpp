#include "TimerHeap.h"

#include "Dispatch.h"

#include <algorithm>

namespace dispatch::detail {

TimerHeap &TimerHeap::shared()
{
    static TimerHeap *const heap = new TimerHeap;
    return *heap;
}

bool TimerHeap::later(const Entry &a, const Entry &b)
{
    return a.due != b.due ? a.due > b.due : a.order > b.order;
}

void TimerHeap::schedule(std::shared_ptr<Queue> queue, Clock::time_point due, std::function<void()> block)
{
    std::lock_guard lock(m_mutex);
    m_heap.push_back({due, m_scheduled++, std::move(queue), std::move(block)});
    std::push_heap(m_heap.begin(), m_heap.end(), later);
    if (!m_thread.joinable())
        m_thread = std::thread([this, generation = m_generation] { run(generation); });
    else if (m_heap.front().order == m_scheduled - 1)
        m_changed.notify_one(); // a new earliest block
}

void TimerHeap::run(unsigned generation)
{
    std::unique_lock lock(m_mutex);
    while (m_generation == generation) {
        if (m_heap.empty()) {
            m_changed.wait(lock);
            continue;
        }
        // A copy: the heap may grow, and move its entries, while this waits.
        const Clock::time_point due = m_heap.front().due;
        if (Clock::now() < due) {
            m_changed.wait_until(lock, due);
            continue;
        }
        std::pop_heap(m_heap.begin(), m_heap.end(), later);
        Entry entry = std::move(m_heap.back());
        m_heap.pop_back();
        lock.unlock();
        entry.queue->async(std::move(entry.block));
        entry = {};
        lock.lock();
    }
}

void TimerHeap::stop()
{
    std::thread thread;
    {
        std::lock_guard lock(m_mutex);
        ++m_generation;
        m_changed.notify_all();
        thread.swap(m_thread);
    }
    if (thread.joinable())
        thread.join();
    std::vector<Entry> dropped;
    std::lock_guard lock(m_mutex);
    dropped.swap(m_heap);
    // `dropped` goes after the lock: its blocks and queues are released on the caller's thread.
}

} // namespace dispatch::detail
