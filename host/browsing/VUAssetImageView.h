#pragma once
// An image view that shows an asset: it loads the asset's image from a media provider, fitted
// whole into the view, and drops the load when told to stop or to show another asset.

#include "VUAspectFitImageView.h"
#include "VUAssetImageLoader.h"

class VUAssetImageView : public VUAspectFitImageView {
    Q_OBJECT
public:
    using VUAspectFitImageView::VUAspectFitImageView;

    // `targetSize` in pixels. The view is empty until the image arrives.
    void showAsset(const VUMediaProviderPtr &provider, const VUDisplayAsset &asset, const QSizeF &targetSize);
    // The image is no longer wanted; what is shown stays.
    void stopLoading() { m_loader.cancel(); }
    // Stops loading and shows nothing.
    void clear();

private:
    VUAssetImageLoader m_loader;
};
