#pragma once
// An asset of the photo library as the browsing components see it. It keeps the library's
// snapshot of the asset, so what it answers never changes under a screen that shows it.

#include "VUDisplayAsset.h"

#include <photos/VHAsset.h>

class VULibraryDisplayAsset : public VUDisplayAsset {
public:
    explicit VULibraryDisplayAsset(VHAsset asset) : m_asset(std::move(asset)) {}

    const VHAsset &libraryAsset() const { return m_asset; }

    bool isFavorite() const override { return m_asset.isFavorite(); }
    bool isTemporaryPlaceholder() const override { return false; }
    bool isStirShot() const override { return m_asset.isMovingPhoto(); }
    bool canPlayPhotoLumo() const override { return m_asset.isMovingPhoto(); }
    bool isPhotoLumoPlaceholder() const override { return false; }
    quint64 mediaType() const override { return quint64(m_asset.mediaType()); }
    quint64 mediaSubtypes() const override { return m_asset.mediaSubtypes(); }
    // The library keeps no playback styles or variations.
    qint64 playbackStyle() const override { return 0; }
    qint64 playbackVariation() const override { return 0; }
    quint64 pixelWidth() const override { return quint64(std::max(0, m_asset.pixelWidth())); }
    quint64 pixelHeight() const override { return quint64(std::max(0, m_asset.pixelHeight())); }
    std::optional<VHLocation> location() const override { return m_asset.location(); }
    double duration() const override { return m_asset.duration(); }
    QDateTime creationDate() const override { return m_asset.creationDate(); }
    QDateTime localCreationDate() const override { return m_asset.localCreationDate(); }
    QDateTime modificationDate() const override { return m_asset.modificationDate(); }
    double aspectRatio() const override { return m_asset.aspectRatio(); }
    // The nearest city, as the library names the places of its highlights; empty without one.
    QString localizedGeoDescription() const override;
    // The MIME type of the original file ("image/jpeg", "video/quicktime").
    QString uniformTypeIdentifier() const override;
    quint64 originalFilesize() const override;
    VUMediaTime photoLumoStillDisplayTime() const override;
    VUMediaTime photoLumoVideoDuration() const override;
    bool hasPhotoColorAdjustments() const override { return false; }
    bool isHidden() const override { return m_asset.isHidden(); }
    bool isAnimatedImage() const override { return false; }
    bool canPlayLoopingVideo() const override { return false; }
    QString deferredLogInfo() const override { return m_asset.localIdentifier(); }
    QString uuid() const override { return m_asset.localIdentifier(); }

    quint64 hash() const override { return qHash(m_asset.localIdentifier()); }
    // The same asset of the same library.
    bool isEqual(const VUDisplayAsset *other) const override;
    // The library never edits an asset, so the same asset is the same content.
    bool isContentEqualTo(const VUDisplayAsset *other) const override { return isEqual(other); }

    // The original file: the photo of a still or Stir Shot, the movie of a video.
    QString originalPath() const;

private:
    VHAsset m_asset;
};
