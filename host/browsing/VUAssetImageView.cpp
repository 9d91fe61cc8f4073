#include "VUAssetImageView.h"

void VUAssetImageView::showAsset(const VUMediaProviderPtr &provider, const VUDisplayAsset &asset, const QSizeF &targetSize)
{
    setImage(nullptr);
    // The loader goes with the view, and answers after that are dropped.
    m_loader.load(provider, asset, targetSize, [this](const graphics::ImagePtr &image) { setImage(image); });
}

void VUAssetImageView::clear()
{
    m_loader.cancel();
    setImage(nullptr);
}
