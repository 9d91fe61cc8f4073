#include "VUTesterImageGenerator.h"

VUTesterImageGenerator::VUTesterImageGenerator()
    : m_queue(dispatch::Queue::createSerial("com.vistra.photos.VUTesterImageGenerator"))
{
}

VUTesterImageGenerator::~VUTesterImageGenerator() = default;

void VUTesterImageGenerator::setImageSize(QSizeF imageSize)
{
    if (imageSize.width() == m_imageSize.width() && imageSize.height() == m_imageSize.height())
        return;
    m_imageSize = imageSize;
    invalidateImage();
}

graphics::ImagePtr VUTesterImageGenerator::image() const
{
    std::lock_guard lock(m_imageMutex);
    return m_image;
}

graphics::ImagePtr VUTesterImageGenerator::createImage()
{
    return nullptr;
}

void VUTesterImageGenerator::invalidateImage()
{
    graphics::ImagePtr dropped;
    std::lock_guard lock(m_imageMutex);
    dropped.swap(m_image); // released after the lock, outside the critical section
}

void VUTesterImageGenerator::_updateImageIfNeeded()
{
    if (image())
        return;
    graphics::ImagePtr created = createImage();
    std::lock_guard lock(m_imageMutex);
    m_image = std::move(created);
}

void VUTesterImageGenerator::generateImageWithCompletionHandler(ImageHandler handler)
{
    // A generator owned by a shared_ptr stays alive until its request has been served.
    m_queue->async([this, keepAlive = weak_from_this().lock(), handler = std::move(handler)] {
        _updateImageIfNeeded();
        handler(image());
    });
}

graphics::ImagePtr VUTesterImageGenerator::generatedImage()
{
    if (dispatch::Queue::current() == m_queue.get())
        qFatal("VUTesterImageGenerator: generatedImage called on the generator's own queue");
    dispatch::Semaphore semaphore(0);
    graphics::ImagePtr result;
    generateImageWithCompletionHandler([&](graphics::ImagePtr image) {
        result = std::move(image);
        semaphore.signal();
    });
    semaphore.wait();
    return result;
}
