#include "PixelBufferAdaptor.h"

#include "MovieWriter.h"
#include "VideoInput.h"

namespace movie {

PixelBufferAdaptor::PixelBufferAdaptor(std::shared_ptr<MovieWriter> writer, std::shared_ptr<VideoInput> input)
    : m_writer(std::move(writer)), m_input(std::move(input))
{
}

PixelBufferPtr PixelBufferAdaptor::createPooledPixelBuffer()
{
    return m_pool.createPixelBuffer(m_input->outputSettings().width, m_input->outputSettings().height);
}

bool PixelBufferAdaptor::appendPixelBuffer(const PixelBuffer &buffer, MediaTime time)
{
    return m_input->isReadyForMoreMediaData() && m_writer->appendPixelBuffer(buffer, time);
}

} // namespace movie
