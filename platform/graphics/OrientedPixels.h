#pragma once
// Whole-pixel turns and mirrors of an image for the eight EXIF orientations, into a recycled buffer.
// The result equals QImage::transformed(exifOrientationTransform(exif)) pixel for pixel, without its
// fresh allocation.

#include <QImage>

namespace graphics {

// The pixels of `source` (converted to premultiplied RGBA8888 if needed) turned by the transform of
// EXIF orientation `exif`: the upright picture of pixels stored under that orientation.
QImage orientedPixels(const QImage &source, int exif);

} // namespace graphics
