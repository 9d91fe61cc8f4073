#include "VUTesterImageCollage.h"

#include <graphics/Canvas.h>

#include <algorithm>

namespace {
constexpr double kGap = 10.0;
}

void VUTesterImageCollage::setImage(graphics::ImagePtr image, const QString &key)
{
    if (!_keys.contains(key))
        _keys.append(key);
    _images.insert(key, std::move(image));
}

void VUTesterImageCollage::_enumerateImagesUsingBlock(const std::function<void(const graphics::ImagePtr &image)> &block) const
{
    for (const QString &key : _keys)
        block(_images.value(key));
}

graphics::ImagePtr VUTesterImageCollage::collageImage() const
{
    QSizeF size(0, 0);
    _enumerateImagesUsingBlock([&](const graphics::ImagePtr &image) {
        const QSizeF imageSize = image ? image->size() : QSizeF(0, 0);
        size.rwidth() += imageSize.width() + kGap;
        size.rheight() = std::max(size.height(), imageSize.height());
    });
    size.rwidth() -= kGap; // the gap stands only between images

    graphics::Canvas canvas(size);
    double x = 0;
    _enumerateImagesUsingBlock([&](const graphics::ImagePtr &image) {
        const QSizeF imageSize = image ? image->size() : QSizeF(0, 0);
        if (image)
            canvas.drawImage(*image, QRectF(QPointF(x, 0), imageSize), graphics::BlendMode::Overlay, 1.0);
        x += imageSize.width() + kGap;
    });
    return canvas.makeImage();
}
