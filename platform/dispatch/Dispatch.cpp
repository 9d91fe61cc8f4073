#include "Dispatch.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <deque>
#include <thread>

namespace dispatch {
namespace {

thread_local Queue *tl_current = nullptr;

// Worker threads are joinable and kept here, so shutdown can wait until each has fully ended,
// thread-local clean-up included; idle workers look at the generation to learn that they should
// end now rather than linger.
struct Workers {
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::thread> threads;
    std::vector<std::thread::id> finished;
    std::atomic<unsigned> endGeneration{0};

    // Joins threads whose function has returned (their clean-up is brief). Call with the lock.
    void reapFinished()
    {
        for (std::thread::id id : finished) {
            auto it = std::find_if(threads.begin(), threads.end(), [id](const std::thread &t) { return t.get_id() == id; });
            if (it != threads.end()) {
                it->join();
                threads.erase(it);
            }
        }
        finished.clear();
    }
};

Workers &workers()
{
    // Never destroyed: workers may still be ending while statics go.
    static Workers *const instance = new Workers;
    return *instance;
}

void spawnWorker(std::function<void()> body)
{
    Workers &w = workers();
    std::lock_guard lock(w.mutex);
    w.reapFinished();
    w.threads.emplace_back([body = std::move(body)]() mutable {
        body();
        body = nullptr;
        std::lock_guard lock(workers().mutex);
        workers().finished.push_back(std::this_thread::get_id());
        workers().changed.notify_all();
    });
}

// An idle worker lingers this long for more work before its thread ends, so bursts of requests
// reuse one thread while a queue that falls silent holds none.
constexpr auto kSerialLinger = std::chrono::milliseconds(200);
constexpr auto kGlobalLinger = std::chrono::seconds(5);
// Far more than two cores need; the cap only stops a runaway of blocked tasks.
constexpr int kGlobalMaxThreads = 64;

class SerialQueue;
void registerIdleWaker(std::weak_ptr<SerialQueue> queue);

class MainQueue final : public Queue {
public:
    MainQueue() : Queue("main") {}
    void async(Block block) override
    {
        QCoreApplication *app = QCoreApplication::instance();
        if (!app)
            qFatal("dispatch: the main queue needs a QCoreApplication");
        QMetaObject::invokeMethod(app, std::move(block), Qt::QueuedConnection);
    }
};

class SerialQueue final : public Queue, public std::enable_shared_from_this<SerialQueue> {
public:
    explicit SerialQueue(std::string label) : Queue(std::move(label)) {}

    void wakeIdleWorker()
    {
        std::lock_guard lock(m_mutex);
        m_cv.notify_all();
    }

    void async(Block block) override
    {
        std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
        if (m_hasWorker) {
            m_cv.notify_one();
            return;
        }
        m_hasWorker = true;
        registerIdleWaker(weak_from_this());
        spawnWorker([self = shared_from_this()] { self->drain(); });
    }

private:
    void drain()
    {
        tl_current = this;
        const unsigned generation = workers().endGeneration;
        std::unique_lock lock(m_mutex);
        for (;;) {
            if (m_blocks.empty()
                && !m_cv.wait_for(lock, kSerialLinger, [&] { return !m_blocks.empty() || workers().endGeneration != generation; })) {
                m_hasWorker = false;
                return;
            }
            if (m_blocks.empty()) {
                m_hasWorker = false;
                return;
            }
            Block block = std::move(m_blocks.front());
            m_blocks.pop_front();
            lock.unlock();
            block();
            block = nullptr; // release captures before taking the lock again
            lock.lock();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::deque<Block> m_blocks;
    bool m_hasWorker = false;
};

class GlobalQueue final : public Queue {
public:
    GlobalQueue() : Queue("global.default") {}

    void wakeIdleWorkers()
    {
        std::lock_guard lock(m_mutex);
        m_cv.notify_all();
    }

    void async(Block block) override
    {
        std::lock_guard lock(m_mutex);
        m_blocks.push_back(std::move(block));
        if (static_cast<long>(m_blocks.size()) > m_idle && m_threads < kGlobalMaxThreads) {
            ++m_threads;
            spawnWorker([this] { work(); });
        } else {
            m_cv.notify_one();
        }
    }

private:
    void work()
    {
        tl_current = this;
        const unsigned generation = workers().endGeneration;
        std::unique_lock lock(m_mutex);
        for (;;) {
            if (m_blocks.empty()) {
                ++m_idle;
                m_cv.wait_for(lock, kGlobalLinger, [&] { return !m_blocks.empty() || workers().endGeneration != generation; });
                --m_idle;
                if (m_blocks.empty()) {
                    --m_threads;
                    return;
                }
            }
            Block block = std::move(m_blocks.front());
            m_blocks.pop_front();
            lock.unlock();
            block();
            block = nullptr;
            lock.lock();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::deque<Block> m_blocks;
    long m_idle = 0;
    int m_threads = 0;
};

std::mutex g_serialRegistryMutex;
std::vector<std::weak_ptr<SerialQueue>> g_serialRegistry;

// Serial queues that may have an idle worker; expired entries are dropped as new ones come.
void registerIdleWaker(std::weak_ptr<SerialQueue> queue)
{
    std::lock_guard lock(g_serialRegistryMutex);
    std::erase_if(g_serialRegistry, [](const std::weak_ptr<SerialQueue> &q) { return q.expired(); });
    g_serialRegistry.push_back(std::move(queue));
}

GlobalQueue &globalQueue();

} // namespace

bool endWorkerThreads(std::chrono::milliseconds timeout)
{
    ++workers().endGeneration;
    std::vector<std::shared_ptr<SerialQueue>> serial;
    {
        std::lock_guard lock(g_serialRegistryMutex);
        for (const auto &weak : g_serialRegistry)
            if (auto queue = weak.lock())
                serial.push_back(std::move(queue));
        g_serialRegistry.clear();
    }
    for (const auto &queue : serial)
        queue->wakeIdleWorker();
    serial.clear();
    globalQueue().wakeIdleWorkers();
    Workers &w = workers();
    std::unique_lock lock(w.mutex);
    const bool ended = w.changed.wait_for(lock, timeout, [&w] { return w.finished.size() == w.threads.size(); });
    w.reapFinished();
    return ended;
}

Queue::~Queue() = default;

QueuePtr Queue::main()
{
    static const QueuePtr queue = std::make_shared<MainQueue>();
    return queue;
}

namespace {
GlobalQueue &globalQueue()
{
    // Never destroyed: detached workers may still be winding down at exit.
    static GlobalQueue *const queue = new GlobalQueue;
    return *queue;
}
} // namespace

QueuePtr Queue::global()
{
    static const QueuePtr queue(&globalQueue(), [](Queue *) {});
    return queue;
}

QueuePtr Queue::createSerial(std::string label)
{
    return std::make_shared<SerialQueue>(std::move(label));
}

Queue *Queue::current()
{
    if (tl_current)
        return tl_current;
    QCoreApplication *app = QCoreApplication::instance();
    if (app && QThread::currentThread() == app->thread())
        return main().get();
    return nullptr;
}

void Queue::sync(const Block &block)
{
    if (current() == this && this == main().get()) {
        block();
        return;
    }
    Semaphore done;
    async([&] {
        block();
        done.signal();
    });
    done.wait();
}

void after(const QueuePtr &queue, std::chrono::milliseconds delay, Block block)
{
    if (queue == Queue::main()) {
        QCoreApplication *app = QCoreApplication::instance();
        if (!app)
            qFatal("dispatch: the main queue needs a QCoreApplication");
        // Timers belong to the thread that starts them: start this one on the main thread.
        QMetaObject::invokeMethod(app, [app, delay, block = std::move(block)]() mutable {
            QTimer::singleShot(delay, app, std::move(block));
        }, Qt::QueuedConnection);
        return;
    }
    std::thread([queue, delay, block = std::move(block)]() mutable {
        std::this_thread::sleep_for(delay);
        queue->async(std::move(block));
    }).detach();
}

void Semaphore::signal()
{
    std::lock_guard lock(m_mutex);
    ++m_value;
    m_cv.notify_one();
}

void Semaphore::wait()
{
    std::unique_lock lock(m_mutex);
    m_cv.wait(lock, [this] { return m_value > 0; });
    --m_value;
}

bool Semaphore::waitFor(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    if (!m_cv.wait_for(lock, timeout, [this] { return m_value > 0; }))
        return false;
    --m_value;
    return true;
}

void Group::enter()
{
    std::lock_guard lock(m_mutex);
    ++m_count;
}

void Group::leave()
{
    std::vector<std::pair<QueuePtr, Block>> due;
    {
        std::lock_guard lock(m_mutex);
        if (m_count <= 0)
            qFatal("dispatch: unbalanced Group::leave");
        if (--m_count == 0) {
            due.swap(m_notifications);
            m_cv.notify_all();
        }
    }
    for (auto &[queue, block] : due)
        queue->async(std::move(block));
}

void Group::async(Queue &queue, Block block)
{
    enter();
    queue.async([this, block = std::move(block)] {
        block();
        leave();
    });
}

void Group::notify(const QueuePtr &queue, Block block)
{
    {
        std::lock_guard lock(m_mutex);
        if (m_count > 0) {
            m_notifications.emplace_back(queue, std::move(block));
            return;
        }
    }
    queue->async(std::move(block));
}

void Group::wait()
{
    std::unique_lock lock(m_mutex);
    m_cv.wait(lock, [this] { return m_count == 0; });
}

bool Group::waitFor(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    return m_cv.wait_for(lock, timeout, [this] { return m_count == 0; });
}

} // namespace dispatch
