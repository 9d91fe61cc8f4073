#pragma once
// Appends pixel buffers to a movie writer's video input at given presentation times, and offers a
// pool of buffers of the input's size.

#include "MediaTime.h"
#include "PixelBuffer.h"

#include <memory>

namespace movie {

class MovieWriter;
class VideoInput;

class PixelBufferAdaptor {
public:
    PixelBufferAdaptor(std::shared_ptr<MovieWriter> writer, std::shared_ptr<VideoInput> input);

    // Buffers at the input's output size.
    PixelBufferPtr createPooledPixelBuffer();
    PixelBufferPool &pixelBufferPool() { return m_pool; }
    // False when the input is finished or the writer failed (its error() says why).
    bool appendPixelBuffer(const PixelBuffer &buffer, MediaTime time);

private:
    std::shared_ptr<MovieWriter> m_writer;
    std::shared_ptr<VideoInput> m_input;
    PixelBufferPool m_pool;
};

} // namespace movie
