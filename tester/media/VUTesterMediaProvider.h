#pragma once
// Stands in for the library's media provider when screens show synthetic assets: every image is a
// placeholder picture naming the asset's item, drawn at the asset's own pixel size and handed over
// before the request returns. Synthetic assets have nothing to play.

#include "shell/VUTesterExport.h"

#include <browsing/VUMediaProvider.h>

class VUTESTER_EXPORT VUTesterMediaProvider : public VUMediaProvider {
public:
    // Target size, content mode and options are ignored; the handler runs on the calling thread.
    VUMediaRequestID requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                          const VUMediaRequestOptions &options, ImageResultHandler resultHandler) override;
    // Never answered.
    VUMediaRequestID requestPlayerItemForVideo(const VUDisplayAsset &asset, const VUMediaRequestOptions &options,
                                               PlayerItemResultHandler resultHandler) override;
    VUMediaRequestID requestStirShotForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                             const VUMediaRequestOptions &options, StirShotResultHandler resultHandler) override;
    void cancelImageRequest(VUMediaRequestID) override {}

    // A light grey card with a dark 5-point frame and the item's description centred on it.
    static graphics::ImagePtr _imageForItem(const QVariant &item, const QSizeF &size);
};
