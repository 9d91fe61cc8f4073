#include "dispatch/Dispatch.h"

#include "ProcessStats.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using dispatch::Queue;

TEST(SerialQueue, RunsBlocksOneAtATimeInSubmissionOrder)
{
    auto queue = Queue::createSerial("test.order");
    std::vector<int> seen;
    std::atomic<int> inside{0};
    bool overlapped = false;
    for (int i = 0; i < 500; ++i) {
        queue->async([&, i] {
            if (++inside > 1)
                overlapped = true;
            seen.push_back(i);
            --inside;
        });
    }
    queue->sync([] {});
    ASSERT_EQ(seen.size(), 500u);
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(seen[i], i);
    EXPECT_FALSE(overlapped);
}

TEST(SerialQueue, CurrentNamesTheRunningQueue)
{
    auto queue = Queue::createSerial("test.current");
    Queue *inside = nullptr;
    queue->sync([&] { inside = Queue::current(); });
    EXPECT_EQ(inside, queue.get());
    EXPECT_EQ(queue->label(), "test.current");
}

// Composite generators wait on their children from their own queue. A chain of serial queues,
// each waiting synchronously on the next, must complete however many are alive at once.
TEST(SerialQueue, DeepNestedWaitsAcrossManyQueuesNeverDeadlock)
{
    constexpr int kDepth = 40;
    constexpr int kChains = 16;
    std::vector<std::vector<dispatch::QueuePtr>> chains(kChains);
    for (auto &chain : chains)
        for (int i = 0; i < kDepth; ++i)
            chain.push_back(Queue::createSerial("test.chain"));

    std::function<int(const std::vector<dispatch::QueuePtr> &, int)> descend =
        [&](const std::vector<dispatch::QueuePtr> &chain, int level) -> int {
        if (level == kDepth)
            return 0;
        int result = 0;
        chain[level]->sync([&] { result = 1 + descend(chain, level + 1); });
        return result;
    };

    dispatch::Group group;
    std::atomic<int> total{0};
    for (auto &chain : chains)
        group.async(*Queue::global(), [&] { total += descend(chain, 0); });
    ASSERT_TRUE(group.waitFor(30s)) << "nested waits did not finish";
    EXPECT_EQ(total.load(), kDepth * kChains);
}

// Serial queues borrow the shared pool's workers: a burst over thousands of queues, each task
// waiting for a child queue's work as a composite image generator does, keeps the process's
// threads to a handful.
TEST(SerialQueue, ThousandsOfQueuesShareAFewThreads)
{
    const int before = processThreadCount();
    constexpr int kQueues = 2000;
    std::vector<dispatch::QueuePtr> parents, children;
    for (int i = 0; i < kQueues; ++i) {
        parents.push_back(Queue::createSerial("test.parent"));
        children.push_back(Queue::createSerial("test.child"));
    }
    std::atomic<int> most{0};
    std::atomic<int> ran{0};
    dispatch::Group group;
    for (int i = 0; i < kQueues; ++i) {
        group.async(*parents[size_t(i)], [&, i] {
            dispatch::Semaphore done;
            children[size_t(i)]->async([&] {
                const int seen = processThreadCount();
                for (int known = most.load(); seen > known && !most.compare_exchange_weak(known, seen);) {
                }
                done.signal();
            });
            done.wait();
            ++ran;
        });
    }
    ASSERT_TRUE(group.waitFor(30s));
    EXPECT_EQ(ran.load(), kQueues);
    EXPECT_LE(most.load() - before, 8) << "threads grew with the number of queues";
}

// Blocks on the global queue that block must not keep later blocks from running.
TEST(GlobalQueue, GrowsWhenEveryWorkerIsBlocked)
{
    constexpr int kBlocked = 8;
    dispatch::Semaphore release;
    dispatch::Group group;
    std::atomic<int> started{0};
    for (int i = 0; i < kBlocked; ++i) {
        group.async(*Queue::global(), [&] {
            ++started;
            release.wait();
        });
    }
    dispatch::Semaphore reached;
    Queue::global()->async([&] { reached.signal(); });
    EXPECT_TRUE(reached.waitFor(10s)) << "a block waited behind blocked workers";
    for (int i = 0; i < kBlocked; ++i)
        release.signal();
    ASSERT_TRUE(group.waitFor(10s));
    EXPECT_EQ(started.load(), kBlocked);
}

TEST(SerialQueue, SyncRunsAfterTheBlocksSubmittedBeforeIt)
{
    auto queue = Queue::createSerial("test.sync");
    dispatch::Semaphore release;
    std::vector<int> order;
    queue->async([&] {
        release.wait();
        order.push_back(1);
    });
    queue->async([&] { order.push_back(2); });
    std::thread releaser([&] {
        std::this_thread::sleep_for(20ms);
        release.signal();
    });
    Queue *inside = nullptr;
    queue->sync([&] {
        order.push_back(3);
        inside = Queue::current();
    });
    queue->async([&] { order.push_back(4); });
    queue->sync([] {});
    releaser.join();
    EXPECT_EQ(order, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(inside, queue.get());
}

// Delayed work waits in one heap served by one thread, not a thread per call, and runs in the
// order it falls due.
TEST(After, DelaysShareOneThreadAndRunInDueOrder)
{
    auto queue = Queue::createSerial("test.after");
    const int before = processThreadCount();
    std::mutex mutex;
    std::vector<int> order;
    dispatch::Group group;
    constexpr int kDelays = 40;
    for (int i = 0; i < kDelays; ++i) {
        group.enter();
        // Due times run backwards against the calls, 10 ms apart (far more than a call takes):
        // 400 ms for the first, 10 ms for the last.
        dispatch::after(queue, std::chrono::milliseconds(10 * (kDelays - i)), [&, i] {
            std::lock_guard lock(mutex);
            order.push_back(i);
            group.leave();
        });
    }
    EXPECT_LE(processThreadCount() - before, 2) << "a thread per delayed block";
    ASSERT_TRUE(group.waitFor(10s));
    ASSERT_EQ(order.size(), size_t(kDelays));
    EXPECT_TRUE(std::is_sorted(order.rbegin(), order.rend()));
}

// A delayed block still pending when the workers end is dropped with what it holds, on the
// ending thread: nothing of it may run, or be released, while the process is tearing down.
TEST(After, EndingWorkersDropsPendingDelayedWork)
{
    auto queue = Queue::createSerial("test.after.end");
    auto held = std::make_shared<int>(0);
    std::weak_ptr<int> watch = held;
    std::atomic<bool> ran{false};
    dispatch::after(queue, 10s, [&ran, held = std::move(held)] { ran = true; });
    EXPECT_FALSE(watch.expired());
    ASSERT_TRUE(dispatch::endWorkerThreads(10s));
    EXPECT_TRUE(watch.expired()) << "the pending block outlives the end of the workers";
    EXPECT_FALSE(ran.load());

    // Delays keep working afterwards.
    dispatch::Semaphore fired;
    dispatch::after(queue, 1ms, [&] { fired.signal(); });
    EXPECT_TRUE(fired.waitFor(10s));
}

TEST(Group, NotifiesOnceAllTasksHaveLeft)
{
    dispatch::Group group;
    auto queue = Queue::createSerial("test.notify");
    std::atomic<int> done{0};
    for (int i = 0; i < 20; ++i)
        group.async(*Queue::global(), [&] { ++done; });
    dispatch::Semaphore notified;
    int doneAtNotify = -1;
    group.notify(queue, [&] {
        doneAtNotify = done.load();
        notified.signal();
    });
    ASSERT_TRUE(notified.waitFor(10s));
    EXPECT_EQ(doneAtNotify, 20);

    // An empty group notifies at once.
    dispatch::Group empty;
    empty.notify(queue, [&] { notified.signal(); });
    EXPECT_TRUE(notified.waitFor(10s));
}

TEST(Semaphore, WaitForTimesOutWithoutSignalAndCountsSignals)
{
    dispatch::Semaphore semaphore;
    EXPECT_FALSE(semaphore.waitFor(20ms));
    semaphore.signal();
    semaphore.signal();
    EXPECT_TRUE(semaphore.waitFor(0ms));
    EXPECT_TRUE(semaphore.waitFor(0ms));
    EXPECT_FALSE(semaphore.waitFor(0ms));
}

TEST(Once, RunsExactlyOnceUnderContention)
{
    dispatch::OnceFlag flag;
    std::atomic<int> runs{0};
    dispatch::Group group;
    for (int i = 0; i < 16; ++i)
        group.async(*Queue::global(), [&] { dispatch::once(flag, [&] { ++runs; }); });
    ASSERT_TRUE(group.waitFor(10s));
    EXPECT_EQ(runs.load(), 1);
}

TEST(MainQueue, RunsOnTheEventLoopThreadAndHonoursDelays)
{
    QCoreApplication &app = *QCoreApplication::instance();

    bool onMainThread = false;
    bool mainIsCurrent = false;
    QElapsedTimer clock;
    clock.start();
    qint64 delayedAt = -1;
    Queue::global()->async([&] {
        Queue::main()->async([&] {
            onMainThread = QThread::currentThread() == app.thread();
            mainIsCurrent = Queue::current() == Queue::main().get();
        });
        dispatch::after(Queue::main(), 50ms, [&] {
            delayedAt = clock.elapsed();
            app.quit();
        });
    });
    app.exec();
    EXPECT_TRUE(onMainThread);
    EXPECT_TRUE(mainIsCurrent);
    EXPECT_GE(delayedAt, 50);

    // sync on the main queue from the main thread runs inline instead of deadlocking.
    bool ran = false;
    Queue::main()->sync([&] { ran = true; });
    EXPECT_TRUE(ran);
}

// The application ends worker threads before its Qt globals go; queues must keep working after.
TEST(Workers, EndWorkerThreadsWaitsForIdleWorkersAndQueuesStillRunAfterwards)
{
    auto serial = Queue::createSerial("test.end");
    serial->sync([] {});
    dispatch::Group group;
    for (int i = 0; i < 4; ++i)
        group.async(*Queue::global(), [] {});
    ASSERT_TRUE(group.waitFor(10s));
    // Idle workers would linger for their queues; ending them must not wait that long.
    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(dispatch::endWorkerThreads(10s));
    EXPECT_LT(clock.elapsed(), 4000);

    dispatch::Semaphore busy;
    Queue::global()->async([&] { busy.wait(); });
    EXPECT_FALSE(dispatch::endWorkerThreads(100ms)) << "a busy worker is reported, not waited for forever";
    busy.signal();

    bool ran = false;
    serial->sync([&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(dispatch::endWorkerThreads(10s));
}
