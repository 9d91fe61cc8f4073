#include "VUTesterOrientedImageGenerator.h"

#include <graphics/Canvas.h>
#include <graphics/OrientedPixels.h>

#include <cmath>

void VUTesterOrientedImageGenerator::setImageGenerator(VUTesterImageGeneratorPtr imageGenerator)
{
    if (imageGenerator == m_imageGenerator)
        return;
    m_imageGenerator = std::move(imageGenerator);
    if (m_imageGenerator)
        setImageSize(m_imageGenerator->imageSize());
    invalidateImage();
}

void VUTesterOrientedImageGenerator::setImageSize(QSizeF imageSize)
{
    if (imageSize == this->imageSize())
        return;
    VUTesterImageGenerator::setImageSize(imageSize);
    invalidateImage();
}

graphics::ImagePtr VUTesterOrientedImageGenerator::createImage()
{
    const VUTesterImageGeneratorPtr source = m_imageGenerator;
    if (!source)
        return nullptr;
    if (source.get() == this)
        qFatal("VUTesterOrientedImageGenerator: a generator cannot be its own source");
    const QSizeF size = imageSize();
    source->setImageSize(size);
    const auto orientation = graphics::isValidImageOrientation(m_imageOrientation)
                                 ? static_cast<graphics::ImageOrientation>(m_imageOrientation)
                                 : graphics::ImageOrientation::Up;
    // The source draws on its own queue, so waiting for it here cannot deadlock.
    if (orientation == graphics::ImageOrientation::Up)
        return source->generatedImage();

    const int inverse = graphics::inverseExifOrientation(graphics::exifOrientation(orientation));
    const graphics::ImagePtr picture = source->generatedImage();
    if (!picture)
        return nullptr;

    // Whole pixels at the full size: move them exactly, without painting (painting under a turn
    // resamples, which blurs by a level here and there).
    if (picture->size() == size && QSizeF(size.toSize()) == size) {
        return std::make_shared<const graphics::Image>(graphics::orientedPixels(picture->uprightPixels(), inverse),
                                                       orientation, picture->scale());
    }

    const QSizeF turned = graphics::transformedSize(size, inverse);
    graphics::Canvas canvas(turned);
    if (!canvas.isValid())
        return nullptr;
    const QTransform transform = QTransform::fromTranslate(-size.width() / 2, -size.height() / 2)
                                 * graphics::exifOrientationTransform(inverse)
                                 * QTransform::fromTranslate(turned.width() / 2, turned.height() / 2);
    canvas.painter().setTransform(transform);
    canvas.drawImage(*picture, QRectF(QPointF(0, 0), size));
    const graphics::ImagePtr drawn = canvas.makeImage();
    return std::make_shared<const graphics::Image>(drawn->pixels(), orientation, picture->scale());
}
