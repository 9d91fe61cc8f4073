#include "VHAsset.h"

#include "FetchQuery.h"
#include "VHAssetCollection.h"

using photos::detail::FetchQuery;
using photos::detail::SortColumn;

namespace {

const SortColumn kAssetSortColumns[] = {
    {"creationDate", "a.creation_ms"},
    {"pixelWidth", "a.pixel_width"},
    {"pixelHeight", "a.pixel_height"},
    {"duration", "a.duration"},
    {"localIdentifier", "a.uuid"},
    {"favorite", "a.favorite"},
};

enum CurationKind : qint64 { KindKey = 0, KindSummary = 1, KindExtended = 2, KindCurated = 3 };

std::shared_ptr<VHPhotoLibrary> libraryOf(const VHFetchOptions &options)
{
    return options.photoLibrary() ? options.photoLibrary() : VHPhotoLibrary::sharedPhotoLibrary();
}

FetchQuery assetQuery(const VHFetchOptions &options)
{
    FetchQuery query{"SELECT a.id FROM asset a", {}, {}, "a.creation_ms, a.id", "a.id"};
    if (!options.includeHiddenAssets())
        query.where("a.hidden = ?", qint64(0));
    return query;
}

VHFetchResult<VHAsset> fetch(const std::shared_ptr<VHPhotoLibrary> &library, const FetchQuery &query,
                             const VHFetchOptions &options)
{
    return VHFetchResult<VHAsset>(library, photos::detail::runFetch(*library, query, options, kAssetSortColumns));
}

// The curation lists of a highlight, found by its identifier: day groups are rebuilt under new row
// numbers as days join them, but keep their identifiers.
VHFetchResult<VHAsset> fetchCuration(const VHAssetCollection &collection, CurationKind kind, VHFetchOptions options)
{
    const auto &library = collection.photoLibrary();
    library->ensureHighlightsCurrent();
    FetchQuery query{"SELECT a.id FROM highlight h JOIN highlight_asset ha ON ha.highlight_id = h.id"
                     " JOIN asset a ON a.id = ha.asset_id",
                     {}, {}, "ha.position", "ha.position"};
    query.where("h.uuid = ?", collection.localIdentifier());
    query.where("ha.kind = ?", qint64(kind));
    return fetch(library, query, options);
}

} // namespace

VHAsset::VHAsset(std::shared_ptr<VHPhotoLibrary> library, std::shared_ptr<const Record> record)
    : m_library(std::move(library)), m_record(std::move(record))
{
}

QDateTime VHAsset::creationDate() const
{
    return QDateTime::fromMSecsSinceEpoch(m_record->creationMs, Qt::UTC);
}

QDateTime VHAsset::localCreationDate() const
{
    const qint64 offset = m_record->localSeconds - m_record->creationMs / 1000;
    return QDateTime::fromMSecsSinceEpoch(m_record->creationMs, Qt::OffsetFromUTC, int(offset));
}

QString VHAsset::resourcePath(VHAssetResourceType type) const
{
    std::vector<photos::detail::ResourceRecord> resources;
    try {
        resources = m_library->catalogue().read(
            [&](photos::detail::Database &database) { return photos::detail::Catalogue::resources(database, m_record->id); });
    } catch (const photos::detail::DatabaseError &) {
        return {};
    }
    for (const auto &resource : resources)
        if (resource.type == type)
            return m_library->resourcePath(resource.relativePath);
    return {};
}

VHFetchResult<VHAsset> VHAsset::fetchAssetsWithOptions(const VHFetchOptions &options)
{
    return fetch(libraryOf(options), assetQuery(options), options);
}

VHFetchResult<VHAsset> VHAsset::fetchAssetsWithMediaType(VHAssetMediaType mediaType, const VHFetchOptions &options)
{
    FetchQuery query = assetQuery(options);
    query.where("a.media_type = ?", qint64(mediaType));
    return fetch(libraryOf(options), query, options);
}

VHFetchResult<VHAsset> VHAsset::fetchAssetsWithLocalIdentifiers(const QStringList &identifiers,
                                                                 const VHFetchOptions &options)
{
    if (identifiers.isEmpty())
        return {};
    FetchQuery query = assetQuery(options);
    QByteArray placeholders;
    for (const QString &identifier : identifiers) {
        placeholders += placeholders.isEmpty() ? "?" : ", ?";
        query.bindings.append(identifier);
    }
    query.conditions.append("a.uuid IN (" + placeholders + ")");
    return fetch(libraryOf(options), query, options);
}

VHFetchResult<VHAsset> VHAsset::fetchAssetsInAssetCollection(const VHAssetCollection &collection,
                                                             const VHFetchOptions &options)
{
    switch (options.highlightCurationType()) {
    case VHHighlightCurationType::Summary:
        return fetchCuration(collection, KindSummary, options);
    case VHHighlightCurationType::Extended:
        return fetchCuration(collection, KindExtended, options);
    case VHHighlightCurationType::None:
        break;
    }
    FetchQuery query = assetQuery(options);
    query.defaultOrder = "a.local_seconds, a.id";
    query.where("a.local_seconds >= ?", collection.record().localStart);
    query.where("a.local_seconds < ?", collection.record().localEnd);
    return fetch(collection.photoLibrary(), query, options);
}

VHFetchResult<VHAsset> VHAsset::fetchCuratedAssetsInAssetCollection(const VHAssetCollection &collection)
{
    return fetchCuration(collection, KindCurated, {});
}

VHFetchResult<VHAsset> VHAsset::fetchKeyCuratedAssetInAssetCollection(const VHAssetCollection &collection,
                                                                      const VHAsset *referenceAsset)
{
    const auto &library = collection.photoLibrary();
    if (referenceAsset && referenceAsset->isValid()) {
        const VHFetchResult<VHAsset> curated = fetchCuratedAssetsInAssetCollection(collection);
        if (curated.containsObject(*referenceAsset))
            return VHFetchResult<VHAsset>(library, {referenceAsset->rowId()});
    }
    library->ensureHighlightsCurrent();
    FetchQuery query{"SELECT a.id FROM highlight h JOIN asset a ON a.id = h.key_asset_id", {}, {}, "a.id", "a.id"};
    query.where("h.uuid = ?", collection.localIdentifier());
    return fetch(library, query, {});
}

std::shared_ptr<const VHAsset::Record> VHAsset::loadRecord(photos::detail::Database &database, qint64 id)
{
    return photos::detail::Catalogue::loadAsset(database, id);
}
