#include "media/VUTesterMediaProvider.h"

#include "layouts/VUTesterAsset.h"

#include <graphics/Canvas.h>
#include <graphics/StyledText.h>

namespace {

// Shared by every placeholder; made once, thread-safely.
const graphics::TextAttributes &itemTextAttributes()
{
    static const graphics::TextAttributes attributes = [] {
        graphics::TextAttributes made;
        made.fontSize = 36.0;
        return made;
    }();
    return attributes;
}

} // namespace

VUMediaRequestID VUTesterMediaProvider::requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &, VUImageContentMode,
                                                             const VUMediaRequestOptions &, ImageResultHandler resultHandler)
{
    const auto *testerAsset = dynamic_cast<const VUTesterAsset *>(&asset);
    const graphics::ImagePtr image = _imageForItem(testerAsset ? testerAsset->item() : QVariant(), QSizeF(asset.pixelWidth(), asset.pixelHeight()));
    if (resultHandler)
        resultHandler(image, {});
    return VUInvalidMediaRequestID;
}

VUMediaRequestID VUTesterMediaProvider::requestPlayerItemForVideo(const VUDisplayAsset &, const VUMediaRequestOptions &, PlayerItemResultHandler)
{
    return VUInvalidMediaRequestID;
}

VUMediaRequestID VUTesterMediaProvider::requestStirShotForAsset(const VUDisplayAsset &, const QSizeF &, VUImageContentMode,
                                                                const VUMediaRequestOptions &, StirShotResultHandler)
{
    return VUInvalidMediaRequestID;
}

graphics::ImagePtr VUTesterMediaProvider::_imageForItem(const QVariant &item, const QSizeF &size)
{
    const graphics::StyledText text(VUTesterItemDescription(item), itemTextAttributes());
    const double w = size.width(), h = size.height();
    graphics::Canvas canvas(size);
    canvas.fillRect(QRectF(0, 0, w, h), graphics::Color::black());
    canvas.fillRect(QRectF(0, 0, w, h), graphics::Color::gray(2.0 / 3.0, 0.5));
    canvas.fillRect(QRectF(5, 5, w - 10, h - 10), graphics::Color::lightGray());
    const QSizeF textSize = text.size();
    canvas.drawText(text, QPointF((w - textSize.width()) * 0.5, (h - textSize.height()) * 0.5));
    return canvas.makeImage();
}
