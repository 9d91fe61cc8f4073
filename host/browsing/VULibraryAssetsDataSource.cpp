#include "VULibraryAssetsDataSource.h"

#include "VULibraryAssetCollection.h"
#include "VULibraryDisplayAsset.h"

#include <photos/VHAssetCollection.h>
#include <photos/VHPhotoLibrary.h>

VULibraryAssetsDataSource::VULibraryAssetsDataSource(std::shared_ptr<VHPhotoLibrary> library, Sectioning sectioning)
    : m_sectioning(sectioning)
{
    if (!library || !library->open())
        return;
    VHFetchOptions options;
    options.setPhotoLibrary(library);
    options.setSortDescriptors({{QStringLiteral("creationDate"), true}});
    if (sectioning == Sectioning::OneSection) {
        VHFetchResult<VHAsset> assets = VHAsset::fetchAssetsWithOptions(options);
        if (assets.isEmpty())
            return;
        auto collection = std::make_shared<VULibraryAssetCollection>(assets.firstObject().creationDate(), assets.lastObject().creationDate());
        m_sections.push_back({std::move(collection), std::move(assets)});
        return;
    }
    // Days hold every visible asset, each in the day of its local capture time.
    VHFetchOptions dayOptions;
    dayOptions.setPhotoLibrary(library);
    dayOptions.setSortDescriptors({{QStringLiteral("startDate"), true}});
    const VHFetchResult<VHAssetCollection> days = VHAssetCollection::fetchAssetCollectionsWithType(
        VHAssetCollectionType::Highlight, VHAssetCollectionSubtypeHighlightDays, dayOptions);
    for (qsizetype i = 0; i < days.count(); ++i) {
        const VHAssetCollection day = days.objectAtIndex(i);
        VHFetchResult<VHAsset> assets = VHAsset::fetchAssetsInAssetCollection(day, options);
        if (!assets.isEmpty())
            m_sections.push_back({std::make_shared<VULibraryAssetCollection>(day), std::move(assets)});
    }
}

bool VULibraryAssetsDataSource::_holds(const ui::IndexPath &indexPath) const
{
    return indexPath.length() == 2 && indexPath.section() >= 0 && indexPath.section() < qint64(m_sections.size()) && indexPath.item() >= 0
           && indexPath.item() < m_sections[size_t(indexPath.section())].assets.count();
}

quint64 VULibraryAssetsDataSource::numberOfSubItemsAtIndexPath(const ui::IndexPath &indexPath) const
{
    if (indexPath.length() == 0)
        return m_sections.size();
    if (indexPath.length() == 1 && indexPath.section() >= 0 && indexPath.section() < qint64(m_sections.size()))
        return quint64(m_sections[size_t(indexPath.section())].assets.count());
    return 0;
}

VUAssetReferencePtr VULibraryAssetsDataSource::assetReferenceAtIndexPath(const ui::IndexPath &indexPath) const
{
    if (!_holds(indexPath))
        return nullptr;
    const Section &section = m_sections[size_t(indexPath.section())];
    const VHAsset asset = section.assets.objectAtIndex(indexPath.item());
    if (!asset.isValid())
        return nullptr;
    return std::make_shared<VUAssetReference>(std::make_shared<VULibraryDisplayAsset>(asset), section.collection, indexPath, identifier());
}

std::optional<ui::IndexPath> VULibraryAssetsDataSource::indexPathForAssetReference(const VUAssetReference *assetReference) const
{
    if (!assetReference)
        return std::nullopt;
    if (assetReference->dataSourceIdentifier() == identifier() && assetReference->indexPath() && _holds(*assetReference->indexPath()))
        return assetReference->indexPath();
    const auto *asset = dynamic_cast<const VULibraryDisplayAsset *>(assetReference->asset().get());
    if (!asset)
        return std::nullopt;
    for (size_t s = 0; s < m_sections.size(); ++s)
        if (const qsizetype item = m_sections[s].assets.indexOfObject(asset->libraryAsset()); item >= 0)
            return ui::IndexPath::forItem(item, qint64(s));
    return std::nullopt;
}
