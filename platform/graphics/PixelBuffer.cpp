#include "PixelBuffer.h"

#include "dispatch/Dispatch.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

namespace graphics {
namespace {

using Clock = std::chrono::steady_clock;

// Smaller buffers are cheap to get from malloc; pooling them would only hold memory.
constexpr size_t kMinPooledBytes = size_t(1) << 20;
// Whatever the work, never more than this kept idle.
constexpr size_t kMaxRetainedBytes = size_t(1) << 30;
// A kept buffer unused this long goes back to the system at the next trim.
constexpr auto kIdleLifetime = std::chrono::seconds(1);

struct Block {
    void *data;
    size_t bytes; // what the memory holds, at least what was asked
    Clock::time_point returned;
};

// Pooled blocks are mapped directly, so that giving one back returns its pages to the system at
// once; malloc would keep blocks of this size in its heap after a free.
void *mapBlock(size_t bytes)
{
    void *data = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return data == MAP_FAILED ? nullptr : data;
}

class Pool {
public:
    Block take(size_t requested)
    {
        if (requested < kMinPooledBytes)
            return {std::aligned_alloc(64, (requested + 63) / 64 * 64), requested, {}};
        static const size_t page = size_t(sysconf(_SC_PAGESIZE));
        const size_t bytes = (requested + page - 1) / page * page;
        std::vector<Block> evicted;
        {
            std::lock_guard lock(m_mutex);
            // Best fit within a quarter of slack, so one huge buffer does not serve many small ones.
            auto best = m_free.end();
            for (auto it = m_free.begin(); it != m_free.end(); ++it)
                if (it->bytes >= bytes && it->bytes <= bytes + bytes / 4 && (best == m_free.end() || it->bytes < best->bytes))
                    best = it;
            if (best != m_free.end()) {
                const Block block = *best;
                m_free.erase(best);
                m_retained -= block.bytes;
                _use(block.bytes);
                return block;
            }
            // New work: make room among the kept buffers, oldest first, within the recent peak.
            while (!m_free.empty() && m_retained + m_inUse + bytes > std::max(m_peak, m_previousPeak))
                _evictOldest(&evicted);
            _use(bytes);
        }
        _release(evicted);
        void *data = mapBlock(bytes);
        if (!data) {
            std::lock_guard lock(m_mutex);
            m_inUse -= bytes;
        }
        return {data, bytes, {}};
    }

    void give(Block block)
    {
        if (block.bytes < kMinPooledBytes) {
            std::free(block.data);
            return;
        }
        std::vector<Block> evicted;
        bool scheduleTrim = false;
        {
            std::lock_guard lock(m_mutex);
            m_inUse -= block.bytes;
            block.returned = Clock::now();
            m_free.push_back(block);
            m_retained += block.bytes;
            while (m_retained > kMaxRetainedBytes)
                _evictOldest(&evicted);
            // A trim dropped unrun (the workers ended) is overdue: schedule another.
            if (!m_trimDue || block.returned > *m_trimDue + kIdleLifetime) {
                m_trimDue = block.returned + kIdleLifetime;
                scheduleTrim = true;
            }
        }
        _release(evicted);
        if (scheduleTrim)
            _scheduleTrim();
    }

    qsizetype retained()
    {
        std::lock_guard lock(m_mutex);
        return qsizetype(m_retained + m_releasing);
    }

private:
    // Call with the lock; the block stays counted until _release() has given its pages back.
    void _evictOldest(std::vector<Block> *evicted)
    {
        evicted->push_back(m_free.front());
        m_retained -= m_free.front().bytes;
        m_releasing += m_free.front().bytes;
        m_free.erase(m_free.begin());
    }

    // Outside the lock: unmapping a big buffer takes a while.
    void _release(const std::vector<Block> &evicted)
    {
        size_t bytes = 0;
        for (const Block &block : evicted) {
            munmap(block.data, block.bytes);
            bytes += block.bytes;
        }
        std::lock_guard lock(m_mutex);
        m_releasing -= bytes;
    }

    // Call with the lock.
    void _use(size_t bytes)
    {
        m_inUse += bytes;
        m_peak = std::max(m_peak, m_inUse);
    }

    void _scheduleTrim()
    {
        static const dispatch::QueuePtr queue = dispatch::Queue::createSerial("graphics.pixelbuffers.trim");
        dispatch::after(queue, std::chrono::duration_cast<std::chrono::milliseconds>(kIdleLifetime), [this] { _trim(); });
    }

    // Gives back the buffers that sat unused for a while; the peak starts a new period.
    void _trim()
    {
        std::vector<Block> evicted;
        bool again = false;
        {
            std::lock_guard lock(m_mutex);
            const Clock::time_point now = Clock::now();
            // Oldest first: the stale ones lead the list.
            while (!m_free.empty() && now - m_free.front().returned >= kIdleLifetime)
                _evictOldest(&evicted);
            m_previousPeak = m_peak;
            m_peak = m_inUse;
            again = !m_free.empty();
            m_trimDue.reset();
            if (again)
                m_trimDue = now + kIdleLifetime;
        }
        _release(evicted);
        if (again)
            _scheduleTrim();
    }

    std::mutex m_mutex;
    std::vector<Block> m_free; // oldest first
    size_t m_retained = 0;
    size_t m_releasing = 0; // evicted, pages not yet given back
    size_t m_inUse = 0;
    // The most in use at once in this trim period and the one before.
    size_t m_peak = 0;
    size_t m_previousPeak = 0;
    std::optional<Clock::time_point> m_trimDue;
};

Pool &pool()
{
    // Never destroyed: images may outlive static destruction.
    static Pool *instance = new Pool;
    return *instance;
}

void returnBlock(void *info)
{
    auto *block = static_cast<Block *>(info);
    pool().give(*block);
    delete block;
}

} // namespace

QImage newPixelImage(QSize size)
{
    if (size.isEmpty())
        return {};
    const size_t bytesPerRow = size_t(size.width()) * 4;
    const Block block = pool().take(bytesPerRow * size_t(size.height()));
    if (!block.data)
        return {};
    return QImage(static_cast<uchar *>(block.data), size.width(), size.height(), qsizetype(bytesPerRow),
                  QImage::Format_RGBA8888_Premultiplied, returnBlock, new Block(block));
}

qsizetype retainedPixelBytes()
{
    return pool().retained();
}

} // namespace graphics
