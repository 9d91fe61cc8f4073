#pragma once
// A synthetic asset wrapping one item of the synthetic data source. It answers every question with
// a fixed value, except its size: the parity of the item's hash makes it landscape (300 x 200, odd)
// or portrait (200 x 300, even), so a grid of items shows a stable mix of both.

#include "layouts/VUTesterItem.h"
#include "shell/VUTesterExport.h"

#include <browsing/VUDisplayAsset.h>

class VUTESTER_EXPORT VUTesterAsset : public VUDisplayAsset {
public:
    explicit VUTesterAsset(QVariant item = QVariant());

    const QVariant &item() const { return _item; }

    bool isFavorite() const override { return false; }
    bool isTemporaryPlaceholder() const override { return false; }
    bool isStirShot() const override { return false; }
    bool canPlayPhotoLumo() const override { return false; }
    bool isPhotoLumoPlaceholder() const override { return false; }
    quint64 mediaType() const override { return quint64(VHAssetMediaType::Image); }
    quint64 mediaSubtypes() const override { return 0; }
    qint64 playbackStyle() const override { return 0; }
    qint64 playbackVariation() const override { return 0; }
    quint64 pixelWidth() const override { return _pixelWidth; }
    quint64 pixelHeight() const override { return _pixelHeight; }
    std::optional<VHLocation> location() const override { return std::nullopt; }
    double duration() const override { return 0; }
    QDateTime creationDate() const override { return {}; }
    QDateTime localCreationDate() const override { return {}; }
    QDateTime modificationDate() const override { return {}; }
    double aspectRatio() const override { return double(_pixelWidth) / double(_pixelHeight); }
    QString localizedGeoDescription() const override { return {}; }
    QString uniformTypeIdentifier() const override { return {}; }
    quint64 originalFilesize() const override { return 0; }
    VUMediaTime photoLumoStillDisplayTime() const override { return {}; }
    VUMediaTime photoLumoVideoDuration() const override { return {}; }
    bool hasPhotoColorAdjustments() const override { return false; }
    bool isHidden() const override { return false; }
    bool isAnimatedImage() const override { return false; }
    bool canPlayLoopingVideo() const override { return false; }
    QString deferredLogInfo() const override { return {}; }
    // The item's description; none for no item.
    QString uuid() const override;

    quint64 hash() const override { return VUTesterItemHash(_item); }
    // Equal to a synthetic asset with an equal item; two assets without an item are not equal.
    bool isEqual(const VUDisplayAsset *other) const override;
    bool isContentEqualTo(const VUDisplayAsset *other) const override { return isEqual(other); }

private:
    QVariant _item;
    quint64 _pixelWidth;
    quint64 _pixelHeight;
};
