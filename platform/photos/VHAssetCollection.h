#pragma once
// A collection of assets; the library derives highlight collections (type 6) from its assets'
// local capture dates: days, day groups, months and years.

#include "AssetRecord.h"
#include "VHFetchResult.h"
#include "VHTypes.h"

#include <QDateTime>

#include <memory>

class VHAssetCollection {
public:
    using Record = photos::detail::CollectionRecord;

    VHAssetCollection() = default;
    VHAssetCollection(std::shared_ptr<VHPhotoLibrary> library, std::shared_ptr<const Record> record);

    bool isValid() const { return m_record != nullptr; }
    QString localIdentifier() const { return m_record->uuid; }
    VHAssetCollectionType assetCollectionType() const { return VHAssetCollectionType::Highlight; }
    int assetCollectionSubtype() const { return m_record->subtype; }
    QString localizedTitle() const { return m_record->title; }
    QString localizedSubtitle() const { return m_record->subtitle; }
    // The first and last capture instants of its assets.
    QDateTime startDate() const;
    QDateTime endDate() const;
    qint64 estimatedAssetCount() const { return m_record->assetCount; }
    qint64 estimatedPhotosCount() const { return m_record->photoCount; }
    qint64 estimatedVideosCount() const { return m_record->videoCount; }
    bool isCurated() const { return m_record->curated; }
    bool isEnriched() const { return m_record->enriched; }
    double promotionScore() const { return m_record->promotionScore; }
    const std::shared_ptr<VHPhotoLibrary> &photoLibrary() const { return m_library; }

    // The font family that titles of curated stories of a title category (1 to 6: best-of, people,
    // places, trips, dates, generic) are set in; empty for other categories. The families come
    // from the fonts the application installs and cover many scripts.
    static QString titleFontNameForTitleCategory(int category);

    static VHFetchResult<VHAssetCollection> fetchAssetCollectionsWithType(VHAssetCollectionType type, int subtype,
                                                                          const VHFetchOptions &options);

    // For VHFetchResult and the asset fetches.
    static std::shared_ptr<const Record> loadRecord(photos::detail::Database &database, qint64 id);
    qint64 rowId() const { return m_record ? m_record->id : 0; }
    const Record &record() const { return *m_record; }

    friend bool operator==(const VHAssetCollection &a, const VHAssetCollection &b)
    {
        return a.rowId() == b.rowId() && a.m_library == b.m_library;
    }

private:
    std::shared_ptr<VHPhotoLibrary> m_library;
    std::shared_ptr<const Record> m_record;
};
