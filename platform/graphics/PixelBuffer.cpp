#include "PixelBuffer.h"

#include <cstdlib>
#include <mutex>
#include <vector>

namespace graphics {
namespace {

// Enough for a few 8000 x 6000 images in flight (a generator stack), small next to the machine.
constexpr size_t kMaxRetainedBytes = size_t(1) << 30;
// Smaller buffers are cheap to get from malloc; pooling them would only hold memory.
constexpr size_t kMinPooledBytes = size_t(1) << 20;

struct Block {
    void *data;
    size_t bytes;
};

class Pool {
public:
    Block take(size_t bytes)
    {
        if (bytes >= kMinPooledBytes) {
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
                return block;
            }
        }
        return {std::aligned_alloc(64, (bytes + 63) / 64 * 64), bytes};
    }

    void give(Block block)
    {
        if (block.bytes >= kMinPooledBytes && block.bytes <= kMaxRetainedBytes) {
            std::lock_guard lock(m_mutex);
            // Oldest first out, so the sizes in current use stay.
            while (m_retained + block.bytes > kMaxRetainedBytes && !m_free.empty()) {
                std::free(m_free.front().data);
                m_retained -= m_free.front().bytes;
                m_free.erase(m_free.begin());
            }
            m_free.push_back(block);
            m_retained += block.bytes;
            return;
        }
        std::free(block.data);
    }

    qsizetype retained()
    {
        std::lock_guard lock(m_mutex);
        return qsizetype(m_retained);
    }

private:
    std::mutex m_mutex;
    std::vector<Block> m_free;
    size_t m_retained = 0;
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
