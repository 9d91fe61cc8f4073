#pragma once
// An image value: premultiplied RGBA8888 pixels, the orientation to show them in, and a scale.
// Immutable once made and shared by pointer, so a cached image can be handed to many readers.

#include "ImageOrientation.h"

#include <QImage>

#include <memory>

namespace graphics {

class Image {
public:
    // Pixels of any format are converted to premultiplied RGBA8888 (no copy when already so).
    explicit Image(QImage pixels, ImageOrientation orientation = ImageOrientation::Up, double scale = 1.0);

    const QImage &pixels() const { return m_pixels; }
    ImageOrientation orientation() const { return m_orientation; }
    double scale() const { return m_scale; }
    // The size shown once the orientation is applied, in points (pixels / scale).
    QSizeF size() const;
    // The pixels turned upright: what a viewer that honours the orientation shows.
    QImage uprightPixels() const;

private:
    QImage m_pixels;
    ImageOrientation m_orientation;
    double m_scale;
};

using ImagePtr = std::shared_ptr<const Image>;

} // namespace graphics
