#pragma once
// Frame buffers in 32-bit ARGB: each pixel one native-endian 0xAARRGGBB word (the layout of
// QImage::Format_RGB32), rows padded to a 64-byte boundary as video hardware and SIMD code like.
// A pool hands out buffers and takes them back when the last reference goes, so a long movie
// reuses a few buffers instead of touching fresh memory for every frame.

#include <QtGlobal>

#include <memory>
#include <mutex>
#include <vector>

namespace movie {

class PixelBuffer {
public:
    static constexpr qsizetype kRowAlignment = 64;

    PixelBuffer(int width, int height);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer &) = delete;
    PixelBuffer &operator=(const PixelBuffer &) = delete;

    int width() const { return m_width; }
    int height() const { return m_height; }
    qsizetype bytesPerRow() const { return m_bytesPerRow; }
    uchar *baseAddress() { return m_data; }
    const uchar *baseAddress() const { return m_data; }

private:
    int m_width, m_height;
    qsizetype m_bytesPerRow;
    uchar *m_data;
};

using PixelBufferPtr = std::shared_ptr<PixelBuffer>;

class PixelBufferPool {
public:
    PixelBufferPool();
    // A buffer of that size, recycled when one is free; its contents are whatever was there.
    // Null for an empty size.
    PixelBufferPtr createPixelBuffer(int width, int height);

private:
    struct Shelf {
        std::mutex mutex;
        std::vector<std::unique_ptr<PixelBuffer>> buffers;
    };
    std::shared_ptr<Shelf> m_shelf;
};

} // namespace movie
