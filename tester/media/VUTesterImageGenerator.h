#pragma once
// The base of every synthetic still image: a pixel size, a cached image and a private serial queue
// on which all drawing runs. Subclasses draw in createImage() and call invalidateImage() from
// every setter whose value really changes the drawing.
//
// Generators are meant to be owned by std::shared_ptr: a pending request keeps its generator alive.

#include "shell/VUTesterExport.h"

#include <dispatch/Dispatch.h>
#include <graphics/Image.h>

#include <QSizeF>

#include <functional>
#include <memory>
#include <mutex>

class VUTESTER_EXPORT VUTesterImageGenerator : public std::enable_shared_from_this<VUTesterImageGenerator> {
public:
    using ImageHandler = std::function<void(graphics::ImagePtr image)>;

    VUTesterImageGenerator();
    virtual ~VUTesterImageGenerator();
    VUTesterImageGenerator(const VUTesterImageGenerator &) = delete;
    VUTesterImageGenerator &operator=(const VUTesterImageGenerator &) = delete;

    QSizeF imageSize() const { return m_imageSize; }
    virtual void setImageSize(QSizeF imageSize);

    // The cached result of the last drawing, or none.
    graphics::ImagePtr image() const;
    // Polled by long drawing loops between rows; false unless a subclass says otherwise.
    virtual bool shouldCancel() const { return false; }
    const dispatch::QueuePtr &_queue() const { return m_queue; }

    // Draws a new image of imageSize; called on the generator's queue. The base draws nothing.
    virtual graphics::ImagePtr createImage();
    void invalidateImage();
    void _updateImageIfNeeded();

    // Runs on the generator's queue: draws if the cache is empty, then calls the handler there.
    void generateImageWithCompletionHandler(ImageHandler handler);
    // Waits for generateImageWithCompletionHandler. Never call it on the generator's own queue.
    graphics::ImagePtr generatedImage();

protected:
    // The setter pattern of every generator: store and invalidate only on a real change.
    template <typename T>
    bool _setValue(T &field, const T &value)
    {
        if (field == value)
            return false;
        field = value;
        invalidateImage();
        return true;
    }

private:
    QSizeF m_imageSize{400.0, 300.0};
    mutable std::mutex m_imageMutex;
    graphics::ImagePtr m_image;
    dispatch::QueuePtr m_queue;
};

using VUTesterImageGeneratorPtr = std::shared_ptr<VUTesterImageGenerator>;
