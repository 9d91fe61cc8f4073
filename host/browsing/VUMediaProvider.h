#pragma once
// Where the browsing components get what they show of an asset: an image at a size, a player item
// for a video, the still and movie of a Stir Shot. A request answers through its handler, on the
// main thread unless a provider says otherwise, and can be cancelled by its identifier; a
// cancelled request is never answered.

#include "VUDisplayAsset.h"

#include <graphics/Image.h>

#include <QSizeF>
#include <QVariantMap>

#include <functional>

using VUMediaRequestID = qint32;
// Returned by requests answered at once, or not at all; cancelling it does nothing.
inline constexpr VUMediaRequestID VUInvalidMediaRequestID = 0;

enum class VUImageContentMode {
    AspectFit = 0,
    AspectFill = 1,
};

struct VUMediaRequestOptions {
    // Whether a quick, smaller image may be delivered first, before the final one.
    bool allowsDegradedImages = false;
};

// Keys of the info handed to image handlers.
inline const QString VUMediaResultIsDegradedKey = QStringLiteral("VUMediaResultIsDegradedKey");
inline const QString VUMediaErrorKey = QStringLiteral("VUMediaErrorKey");

// A playable video: the movie file.
struct VUPlayerItem {
    QString moviePath;
};

// A still and the paired movie it comes from.
struct VUStirShot {
    graphics::ImagePtr still;
    QString moviePath;
    VUMediaTime stillDisplayTime;
};

class VUMediaProvider {
public:
    using ImageResultHandler = std::function<void(const graphics::ImagePtr &image, const QVariantMap &info)>;
    using PlayerItemResultHandler = std::function<void(const std::shared_ptr<const VUPlayerItem> &item, const QVariantMap &info)>;
    using StirShotResultHandler = std::function<void(const std::shared_ptr<const VUStirShot> &stirShot, const QVariantMap &info)>;

    virtual ~VUMediaProvider() = default;

    // `targetSize` in pixels.
    virtual VUMediaRequestID requestImageForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                                  const VUMediaRequestOptions &options, ImageResultHandler resultHandler) = 0;
    virtual VUMediaRequestID requestPlayerItemForVideo(const VUDisplayAsset &asset, const VUMediaRequestOptions &options,
                                                       PlayerItemResultHandler resultHandler) = 0;
    virtual VUMediaRequestID requestStirShotForAsset(const VUDisplayAsset &asset, const QSizeF &targetSize, VUImageContentMode contentMode,
                                                     const VUMediaRequestOptions &options, StirShotResultHandler resultHandler) = 0;
    virtual void cancelImageRequest(VUMediaRequestID requestID) = 0;
};

using VUMediaProviderPtr = std::shared_ptr<VUMediaProvider>;
