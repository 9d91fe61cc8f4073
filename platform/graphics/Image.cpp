#include "Image.h"

#include "OrientedPixels.h"

namespace graphics {

Image::Image(QImage pixels, ImageOrientation orientation, double scale)
    : m_pixels(pixels.format() == QImage::Format_RGBA8888_Premultiplied
                   ? std::move(pixels)
                   : pixels.convertToFormat(QImage::Format_RGBA8888_Premultiplied))
    , m_orientation(orientation)
    , m_scale(scale > 0 ? scale : 1.0)
{
}

QSizeF Image::size() const
{
    const QSizeF pixelSize = transformedSize(QSizeF(m_pixels.size()), exifOrientation(m_orientation));
    return pixelSize / m_scale;
}

QImage Image::uprightPixels() const
{
    const int exif = exifOrientation(m_orientation);
    if (exif == 1)
        return m_pixels;
    // Whole-pixel moves into a recycled buffer: exact, and no fresh memory to fault in.
    return orientedPixels(m_pixels, exif);
}

} // namespace graphics
