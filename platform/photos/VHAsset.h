#pragma once
// One asset of a library: an immutable snapshot of its catalogue row, cheap to copy.

#include "AssetRecord.h"
#include "VHFetchResult.h"
#include "VHTypes.h"

#include <QDateTime>
#include <QStringList>

#include <memory>
#include <optional>

class VHAssetCollection;

class VHAsset {
public:
    using Record = photos::detail::AssetRecord;

    VHAsset() = default;
    VHAsset(std::shared_ptr<VHPhotoLibrary> library, std::shared_ptr<const Record> record);

    bool isValid() const { return m_record != nullptr; }
    QString localIdentifier() const { return m_record->uuid; }
    VHAssetMediaType mediaType() const { return m_record->mediaType; }
    quint64 mediaSubtypes() const { return m_record->mediaSubtypes; }
    bool isMovingPhoto() const { return (m_record->mediaSubtypes & VHAssetMediaSubtypePhotoMoving) != 0; }
    // As displayed: the orientation is already applied.
    int pixelWidth() const { return m_record->pixelWidth; }
    int pixelHeight() const { return m_record->pixelHeight; }
    double aspectRatio() const { return m_record->pixelHeight > 0 ? double(m_record->pixelWidth) / m_record->pixelHeight : 0.0; }
    // The capture instant, in UTC.
    QDateTime creationDate() const;
    // The same instant on the clock of the place where it was captured.
    QDateTime localCreationDate() const;
    // When it entered the library (assets are not edited, so this is also their last change).
    QDateTime modificationDate() const { return QDateTime::fromMSecsSinceEpoch(m_record->addedMs, Qt::UTC); }
    std::optional<VHLocation> location() const { return m_record->location; }
    double duration() const { return m_record->duration; }
    bool isFavorite() const { return m_record->favorite; }
    bool isHidden() const { return m_record->hidden; }
    QString pairingIdentifier() const { return m_record->pairingIdentifier; }
    // The moment of the paired video the still shows; zero for other assets.
    movie::MediaTime imageDisplayTime() const { return m_record->imageDisplayTime; }
    const std::shared_ptr<VHPhotoLibrary> &photoLibrary() const { return m_library; }

    // Absolute paths of the asset's files by kind; empty for a kind it lacks.
    QString resourcePath(VHAssetResourceType type) const;

    static VHFetchResult<VHAsset> fetchAssetsWithOptions(const VHFetchOptions &options);
    static VHFetchResult<VHAsset> fetchAssetsWithMediaType(VHAssetMediaType mediaType, const VHFetchOptions &options);
    static VHFetchResult<VHAsset> fetchAssetsWithLocalIdentifiers(const QStringList &identifiers,
                                                                   const VHFetchOptions &options);
    // Every asset the collection covers, or its summary or extended curation when the options ask
    // for a highlight curation type (in curation order).
    static VHFetchResult<VHAsset> fetchAssetsInAssetCollection(const VHAssetCollection &collection,
                                                               const VHFetchOptions &options);
    static VHFetchResult<VHAsset> fetchCuratedAssetsInAssetCollection(const VHAssetCollection &collection);
    // The collection's key asset; the reference asset instead when it is among the curated assets.
    static VHFetchResult<VHAsset> fetchKeyCuratedAssetInAssetCollection(const VHAssetCollection &collection,
                                                                        const VHAsset *referenceAsset);

    // For VHFetchResult.
    static std::shared_ptr<const Record> loadRecord(photos::detail::Database &database, qint64 id);
    qint64 rowId() const { return m_record ? m_record->id : 0; }

    friend bool operator==(const VHAsset &a, const VHAsset &b) { return a.rowId() == b.rowId() && a.m_library == b.m_library; }

private:
    std::shared_ptr<VHPhotoLibrary> m_library;
    std::shared_ptr<const Record> m_record;
};
