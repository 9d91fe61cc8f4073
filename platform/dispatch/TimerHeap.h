#pragma once
// Delayed work of every queue but the main one: one heap ordered by due time, serviced by one
// thread that hands each block to its queue when it falls due.

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace dispatch {
class Queue;
}

namespace dispatch::detail {

class TimerHeap {
public:
    using Clock = std::chrono::steady_clock;

    // Never destroyed: the thread may be waiting while statics go.
    static TimerHeap &shared();

    void schedule(std::shared_ptr<Queue> queue, Clock::time_point due, std::function<void()> block);
    // Ends the thread and drops the blocks not yet due: they belong to a run that is ending.
    // Later calls of schedule() start the thread again.
    void stop();

private:
    struct Entry {
        Clock::time_point due;
        unsigned long long order; // keeps blocks due at the same time in the order they came
        std::shared_ptr<Queue> queue;
        std::function<void()> block;
    };
    static bool later(const Entry &a, const Entry &b);
    void run(unsigned generation);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Entry> m_heap;
    unsigned long long m_scheduled = 0;
    unsigned m_generation = 0; // a thread serves the heap while this stays as it found it
    std::thread m_thread;
};

} // namespace dispatch::detail
