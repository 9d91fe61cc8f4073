#include "layouts/VUTesterTilingDataSource.h"

#include "layouts/VUTesterAsset.h"
#include "layouts/VUTesterAssetCollection.h"
#include "layouts/VUTesterTilingViewSettings.h"

#include <algorithm>

std::shared_ptr<VUTesterTilingDataSource> VUTesterTilingDataSource::initWithRandomSectionedItems()
{
    return std::make_shared<VUTesterTilingDataSource>(randomSectionedItems(VUTesterTilingViewSettings::sharedInstance()->numberOfSections()));
}

VUTesterTilingDataSource::SectionedItems VUTesterTilingDataSource::randomSectionedItems(qint64 numberOfSections)
{
    SectionedItems sections;
    if (numberOfSections < 1)
        return sections;
    sections.reserve(size_t(numberOfSections));
    for (quint64 s = 0; s < quint64(numberOfSections); ++s) {
        std::vector<QVariant> items;
        const quint64 count = numberOfRandomItemsInSection(s);
        items.reserve(count);
        for (quint64 i = 0; i < count; ++i)
            items.emplace_back(QStringLiteral("%1:%2").arg(s).arg(i));
        sections.push_back(std::move(items));
    }
    return sections;
}

QVariant VUTesterTilingDataSource::itemAtIndexPath(const ui::IndexPath &indexPath) const
{
    return _sectionedItems.at(size_t(indexPath.section())).at(size_t(indexPath.item()));
}

quint64 VUTesterTilingDataSource::numberOfSubItemsAtIndexPath(const ui::IndexPath &indexPath) const
{
    switch (indexPath.length()) {
    case 0:
        return _sectionedItems.size();
    case 1:
        return _sectionedItems.at(size_t(indexPath.section())).size();
    default:
        return 0;
    }
}

VUAssetReferencePtr VUTesterTilingDataSource::assetReferenceAtIndexPath(const ui::IndexPath &indexPath) const
{
    return std::make_shared<VUAssetReference>(std::make_shared<VUTesterAsset>(itemAtIndexPath(indexPath)),
                                              std::make_shared<VUTesterAssetCollection>(), indexPath, identifier());
}

bool VUTesterTilingDataSource::_holdsItemAtIndexPath(const ui::IndexPath &indexPath) const
{
    return indexPath.length() == 2 && indexPath.section() >= 0 && quint64(indexPath.section()) < _sectionedItems.size()
        && indexPath.item() >= 0 && quint64(indexPath.item()) < _sectionedItems[size_t(indexPath.section())].size();
}

std::optional<ui::IndexPath> VUTesterTilingDataSource::indexPathForAssetReference(const VUAssetReference *assetReference) const
{
    if (!assetReference)
        return std::nullopt;
    if (assetReference->dataSourceIdentifier() == identifier())
        return assetReference->indexPath();

    const auto *asset = dynamic_cast<const VUTesterAsset *>(assetReference->asset().get());
    const QVariant wanted = asset ? asset->item() : QVariant();
    // Most items stay where they were: try the old place before searching.
    if (const std::optional<ui::IndexPath> &old = assetReference->indexPath(); old && _holdsItemAtIndexPath(*old)) {
        const QVariant &found = _sectionedItems[size_t(old->section())][size_t(old->item())];
        const bool sameItem = !found.isValid() && !wanted.isValid(); // no item is no item
        if (sameItem || VUTesterItemIsEqual(found, wanted))
            return old;
    }
    for (size_t section = 0; section < _sectionedItems.size(); ++section) {
        const std::vector<QVariant> &items = _sectionedItems[section];
        const auto match = std::find_if(items.begin(), items.end(), [&](const QVariant &item) { return VUTesterItemIsEqual(item, wanted); });
        if (match != items.end())
            return ui::IndexPath::forItem(match - items.begin(), qint64(section));
    }
    return std::nullopt;
}
