#include "OrientedPixels.h"

#include "ImageOrientation.h"
#include "PixelBuffer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace graphics {

QImage orientedPixels(const QImage &source, int exif)
{
    const QImage src = source.format() == QImage::Format_RGBA8888_Premultiplied
                           ? source
                           : source.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (src.isNull())
        return {};
    const int w = src.width();
    const int h = src.height();
    const QSize size = exifOrientationSwapsSize(exif) ? QSize(h, w) : QSize(w, h);
    QImage dst = newPixelImage(size);
    if (dst.isNull())
        return {};

    // Where each destination pixel comes from: the inverse mapping of pixel centres, which for
    // these transforms is a start pixel plus whole-pixel steps along destination x and y.
    const QTransform inverse = QImage::trueMatrix(exifOrientationTransform(exif), w, h).inverted();
    const auto sourcePixel = [&](int x, int y) {
        const QPointF p = inverse.map(QPointF(x + 0.5, y + 0.5));
        return QPoint(int(std::floor(p.x())), int(std::floor(p.y())));
    };
    const QPoint origin = sourcePixel(0, 0);
    const QPoint alongX = sourcePixel(1, 0) - origin;
    const QPoint alongY = sourcePixel(0, 1) - origin;
    const qsizetype stride = src.bytesPerLine() / 4;
    const qsizetype stepX = alongX.x() + alongX.y() * stride;
    const qsizetype stepY = alongY.x() + alongY.y() * stride;
    const auto *from = reinterpret_cast<const uint32_t *>(src.constBits()) + origin.x() + origin.y() * stride;
    auto *to = reinterpret_cast<uint32_t *>(dst.bits());
    const qsizetype dstStride = dst.bytesPerLine() / 4;

    // Tiles keep both the rows read and the rows written in cache when the turn reads columns.
    constexpr int kTile = 64;
    for (int ty = 0; ty < size.height(); ty += kTile) {
        const int yEnd = std::min(size.height(), ty + kTile);
        for (int tx = 0; tx < size.width(); tx += kTile) {
            const int xEnd = std::min(size.width(), tx + kTile);
            for (int y = ty; y < yEnd; ++y) {
                const uint32_t *s = from + y * stepY + tx * stepX;
                uint32_t *d = to + y * dstStride;
                for (int x = tx; x < xEnd; ++x, s += stepX)
                    d[x] = *s;
            }
        }
    }
    return dst;
}

} // namespace graphics
