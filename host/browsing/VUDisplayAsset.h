#pragma once
// What the browsing components ask of an asset they show: its kind, size, dates, place and flags.
// Library assets, and the module's synthetic ones, answer it. Assets are immutable and shared by
// pointer, so a copy is the same object.

#include <photos/VHTypes.h>

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

// A media time with its flags: all zero is the invalid time.
struct VUMediaTime {
    qint64 value = 0;
    qint32 timescale = 0;
    quint32 flags = 0;
    qint64 epoch = 0;

    static constexpr quint32 kValid = 1;
    bool isValid() const { return (flags & kValid) != 0; }
    friend bool operator==(const VUMediaTime &, const VUMediaTime &) = default;
};

class VUDisplayAsset : public std::enable_shared_from_this<VUDisplayAsset> {
public:
    virtual ~VUDisplayAsset() = default;

    virtual bool isFavorite() const = 0;
    virtual bool isTemporaryPlaceholder() const = 0;
    virtual bool isStirShot() const = 0;
    virtual bool canPlayPhotoLumo() const = 0;
    virtual bool isPhotoLumoPlaceholder() const = 0;
    // VHAssetMediaType's values: 1 image, 2 video.
    virtual quint64 mediaType() const = 0;
    virtual quint64 mediaSubtypes() const = 0;
    virtual qint64 playbackStyle() const = 0;
    virtual qint64 playbackVariation() const = 0;
    virtual quint64 pixelWidth() const = 0;
    virtual quint64 pixelHeight() const = 0;
    virtual std::optional<VHLocation> location() const = 0;
    virtual double duration() const = 0;
    // A null date when the asset has none.
    virtual QDateTime creationDate() const = 0;
    virtual QDateTime localCreationDate() const = 0;
    virtual QDateTime modificationDate() const = 0;
    virtual double aspectRatio() const = 0;
    virtual QString localizedGeoDescription() const = 0;
    virtual QString uniformTypeIdentifier() const = 0;
    virtual quint64 originalFilesize() const = 0;
    virtual VUMediaTime photoLumoStillDisplayTime() const = 0;
    virtual VUMediaTime photoLumoVideoDuration() const = 0;
    virtual bool hasPhotoColorAdjustments() const = 0;
    virtual bool isHidden() const = 0;
    virtual bool isAnimatedImage() const = 0;
    virtual bool canPlayLoopingVideo() const = 0;
    virtual QString deferredLogInfo() const = 0;
    virtual QString uuid() const = 0;

    virtual quint64 hash() const = 0;
    // False for null and for assets of another kind.
    virtual bool isEqual(const VUDisplayAsset *other) const = 0;
    // Whether the other asset shows the same content, so a view may keep what it shows.
    virtual bool isContentEqualTo(const VUDisplayAsset *other) const = 0;

    std::shared_ptr<const VUDisplayAsset> copy() const { return shared_from_this(); }
};

using VUDisplayAssetPtr = std::shared_ptr<const VUDisplayAsset>;
