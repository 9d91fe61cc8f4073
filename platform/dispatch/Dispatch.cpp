#include "Dispatch.h"

#include "TimerHeap.h"
#include "WorkerPool.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <condition_variable>

namespace dispatch {
namespace {

using detail::WorkerPool;

thread_local Queue *tl_current = nullptr;

// Runs a block as a task of `queue`: Queue::current() names it meanwhile.
void runAs(Queue *queue, const Block &block)
{
    Queue *const outer = tl_current;
    tl_current = queue;
    block();
    tl_current = outer;
}

QCoreApplication &application()
{
    QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        qFatal("dispatch: the main queue needs a QCoreApplication");
    return *app;
}

class MainQueue final : public Queue {
public:
    MainQueue() : Queue("main") {}
    void async(Block block) override
    {
        QMetaObject::invokeMethod(&application(), std::move(block), Qt::QueuedConnection);
    }
    void sync(const Block &block) override
    {
        // On the main thread itself, whichever queue's task it runs, waiting would never end.
        if (QThread::currentThread() == application().thread())
            block();
        else
            Queue::sync(block);
    }
};

// An ordered list of blocks. While it has any, one job of the pool drains it (or one caller of
// sync() owns it); a batch at a time, so that one busy queue does not hold a worker from the rest.
class SerialQueue final : public Queue, public std::enable_shared_from_this<SerialQueue> {
public:
    explicit SerialQueue(std::string label) : Queue(std::move(label)) {}

    void async(Block block) override
    {
        std::lock_guard lock(m_mutex);
        m_items.push_back({std::move(block), nullptr});
        if (!m_owned) {
            m_owned = true;
            scheduleDrain();
        }
    }

    void sync(const Block &block) override
    {
        std::unique_lock lock(m_mutex);
        if (m_owned) {
            // Wait for the blocks before ours; the drain then hands the queue to this thread.
            Semaphore handedOver;
            m_items.push_back({nullptr, &handedOver});
            lock.unlock();
            handedOver.wait();
        } else {
            m_owned = true;
            lock.unlock();
        }
        runAs(this, block);
        lock.lock();
        release();
    }

private:
    static constexpr int kDrainBatch = 32;

    struct Item {
        Block block;
        Semaphore *handOver; // a sync() caller waiting for its turn
    };

    // Call with the lock, owning the queue.
    void scheduleDrain(WorkerPool::Placement placement = WorkerPool::Placement::Auto)
    {
        WorkerPool::shared().submit([self = shared_from_this()] { self->drain(); }, placement);
    }

    // Gives the queue up, or passes it to a drain when blocks came meanwhile. Call with the lock.
    void release()
    {
        if (m_items.empty())
            m_owned = false;
        else
            scheduleDrain();
    }

    void drain()
    {
        std::unique_lock lock(m_mutex);
        for (int ran = 0; !m_items.empty(); ++ran) {
            if (ran == kDrainBatch) {
                scheduleDrain(WorkerPool::Placement::Back);
                return;
            }
            Item item = std::move(m_items.front());
            m_items.pop_front();
            if (item.handOver) {
                item.handOver->signal();
                return;
            }
            lock.unlock();
            runAs(this, item.block);
            item.block = nullptr; // release captures before taking the lock again
            lock.lock();
        }
        m_owned = false;
    }

    std::mutex m_mutex;
    std::deque<Item> m_items;
    // A drain is scheduled or running, or a sync() caller runs its block.
    bool m_owned = false;
};

class GlobalQueue final : public Queue {
public:
    GlobalQueue() : Queue("global.default") {}
    void async(Block block) override
    {
        WorkerPool::shared().submit([this, block = std::move(block)] { runAs(this, block); });
    }
    void sync(const Block &block) override { runAs(this, block); }
};

} // namespace

bool endWorkerThreads(std::chrono::milliseconds timeout)
{
    detail::TimerHeap::shared().stop();
    return WorkerPool::shared().endWorkers(timeout);
}

int workerThreadCount()
{
    return WorkerPool::shared().threadCount();
}

Queue::~Queue() = default;

QueuePtr Queue::main()
{
    static const QueuePtr queue = std::make_shared<MainQueue>();
    return queue;
}

QueuePtr Queue::global()
{
    // Never destroyed: workers may still be winding down at exit.
    static const QueuePtr *const queue = new QueuePtr(std::make_shared<GlobalQueue>());
    return *queue;
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
        QCoreApplication *app = &application();
        // Timers belong to the thread that starts them: start this one on the main thread.
        QMetaObject::invokeMethod(app, [app, delay, block = std::move(block)]() mutable {
            QTimer::singleShot(delay, app, std::move(block));
        }, Qt::QueuedConnection);
        return;
    }
    detail::TimerHeap::shared().schedule(queue, detail::TimerHeap::Clock::now() + delay, std::move(block));
}

namespace detail {

struct Waiters::Waiter {
    std::condition_variable cv;
    bool woken = false;
    bool counted = false; // a pool worker that the pool counts as blocked
};

bool Waiters::wait(std::unique_lock<std::mutex> &lock, std::optional<std::chrono::milliseconds> timeout)
{
    Waiter me;
    me.counted = WorkerPool::shared().blockBegin();
    m_waiting.push_back(&me);
    if (!timeout) {
        me.cv.wait(lock, [&] { return me.woken; });
        return true;
    }
    if (me.cv.wait_for(lock, *timeout, [&] { return me.woken; }))
        return true;
    m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &me));
    if (me.counted)
        WorkerPool::shared().unblock();
    return false;
}

bool Waiters::wakeOne()
{
    if (m_waiting.empty())
        return false;
    Waiter *waiter = m_waiting.front();
    m_waiting.pop_front();
    waiter->woken = true;
    if (waiter->counted)
        WorkerPool::shared().unblock();
    // Under the owner's lock: the waiter cannot return, and take its Waiter away, before it.
    waiter->cv.notify_one();
    return true;
}

void Waiters::wakeAll()
{
    while (wakeOne()) {
    }
}

} // namespace detail

void Semaphore::signal()
{
    std::lock_guard lock(m_mutex);
    if (!m_waiters.wakeOne())
        ++m_value;
}

void Semaphore::wait()
{
    std::unique_lock lock(m_mutex);
    if (m_value > 0)
        --m_value;
    else
        m_waiters.wait(lock, std::nullopt);
}

bool Semaphore::waitFor(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    if (m_value > 0) {
        --m_value;
        return true;
    }
    return timeout > std::chrono::milliseconds::zero() && m_waiters.wait(lock, timeout);
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
            m_waiters.wakeAll();
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
    if (m_count > 0)
        m_waiters.wait(lock, std::nullopt);
}

bool Group::waitFor(std::chrono::milliseconds timeout)
{
    std::unique_lock lock(m_mutex);
    return m_count == 0 || m_waiters.wait(lock, timeout);
}

} // namespace dispatch
