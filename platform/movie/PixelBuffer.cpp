#include "PixelBuffer.h"

#include <cstdlib>

namespace movie {
namespace {

// Enough for a frame being filled, one being encoded and one spare.
constexpr size_t kMaxFreeBuffers = 3;

} // namespace

PixelBuffer::PixelBuffer(int width, int height)
    : m_width(width), m_height(height),
      m_bytesPerRow((qsizetype(width) * 4 + kRowAlignment - 1) / kRowAlignment * kRowAlignment),
      m_data(static_cast<uchar *>(std::aligned_alloc(kRowAlignment, size_t(m_bytesPerRow) * size_t(height))))
{
    if (!m_data)
        qFatal("out of memory for a %dx%d pixel buffer", width, height);
}

PixelBuffer::~PixelBuffer()
{
    std::free(m_data);
}

PixelBufferPool::PixelBufferPool() : m_shelf(std::make_shared<Shelf>()) {}

PixelBufferPtr PixelBufferPool::createPixelBuffer(int width, int height)
{
    if (width <= 0 || height <= 0)
        return nullptr;
    std::unique_ptr<PixelBuffer> buffer;
    {
        std::lock_guard lock(m_shelf->mutex);
        auto &free = m_shelf->buffers;
        for (auto it = free.begin(); it != free.end(); ++it) {
            if ((*it)->width() == width && (*it)->height() == height) {
                buffer = std::move(*it);
                free.erase(it);
                break;
            }
        }
    }
    if (!buffer)
        buffer = std::make_unique<PixelBuffer>(width, height);
    // The shelf outlives the pool if buffers are still out when the pool goes.
    std::shared_ptr<Shelf> shelf = m_shelf;
    return PixelBufferPtr(buffer.release(), [shelf](PixelBuffer *returned) {
        std::unique_ptr<PixelBuffer> owned(returned);
        std::lock_guard lock(shelf->mutex);
        if (shelf->buffers.size() < kMaxFreeBuffers)
            shelf->buffers.push_back(std::move(owned));
    });
}

} // namespace movie
