#include "VHAssetCollection.h"

#include "FetchQuery.h"

using photos::detail::FetchQuery;
using photos::detail::SortColumn;

namespace {

const SortColumn kCollectionSortColumns[] = {
    {"startDate", "h.start_ms"},
    {"endDate", "h.end_ms"},
    {"promotionScore", "h.promotion_score"},
    {"localizedTitle", "h.title"},
    {"estimatedAssetCount", "h.asset_count"},
};

} // namespace

VHAssetCollection::VHAssetCollection(std::shared_ptr<VHPhotoLibrary> library, std::shared_ptr<const Record> record)
    : m_library(std::move(library)), m_record(std::move(record))
{
}

QDateTime VHAssetCollection::startDate() const
{
    return QDateTime::fromMSecsSinceEpoch(m_record->startMs, Qt::UTC);
}

QDateTime VHAssetCollection::endDate() const
{
    return QDateTime::fromMSecsSinceEpoch(m_record->endMs, Qt::UTC);
}

VHFetchResult<VHAssetCollection> VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType type,
                                                                                  int subtype,
                                                                                  const VHFetchOptions &options)
{
    const auto library = options.photoLibrary() ? options.photoLibrary() : VHPhotoLibrary::sharedPhotoLibrary();
    if (type != VHAssetCollectionType::Highlight)
        return VHFetchResult<VHAssetCollection>(library, {});
    library->ensureHighlightsCurrent();
    FetchQuery query{"SELECT h.id FROM highlight h", {}, {}, "h.start_ms, h.period_key", "h.period_key"};
    if (subtype != VHAssetCollectionSubtypeAny)
        query.where("h.subtype = ?", qint64(subtype));
    return VHFetchResult<VHAssetCollection>(
        library, photos::detail::runFetch(*library, query, options, kCollectionSortColumns));
}

std::shared_ptr<const VHAssetCollection::Record> VHAssetCollection::loadRecord(photos::detail::Database &database,
                                                                               qint64 id)
{
    return photos::detail::Catalogue::loadCollection(database, id);
}
