#pragma once
// A sectioned data source of plain items, fixed when it is made, so the browsing components can be
// exercised without a library. Its "random" content is a fixed arithmetic sequence: two runs show
// the same grid.

#include "shell/VUTesterExport.h"

#include <browsing/VUAssetsDataSource.h>

#include <vector>

class VUTESTER_EXPORT VUTesterTilingDataSource : public VUAssetsDataSource {
public:
    using SectionedItems = std::vector<std::vector<QVariant>>;

    // No sections.
    VUTesterTilingDataSource() = default;
    // Keeps its own copy: later changes to the caller's lists are not seen.
    explicit VUTesterTilingDataSource(SectionedItems sectionedItems) : _sectionedItems(std::move(sectionedItems)) {}
    // The sections of randomSectionedItems() for the tiling view settings' numberOfSections.
    static std::shared_ptr<VUTesterTilingDataSource> initWithRandomSectionedItems();

    // Section s holds ((s * (s mod 7) * 747) mod 23) + 3 items, "s:0", "s:1", ...; none below 1.
    static SectionedItems randomSectionedItems(qint64 numberOfSections);
    static quint64 numberOfRandomItemsInSection(quint64 section) { return (section * (section % 7) * 747) % 23 + 3; }

    // Out-of-range paths are programming errors: they throw std::out_of_range.
    QVariant itemAtIndexPath(const ui::IndexPath &indexPath) const;

    quint64 numberOfSubItemsAtIndexPath(const ui::IndexPath &indexPath) const override;
    // A new asset and collection each time; assets are equal when their items are.
    VUAssetReferencePtr assetReferenceAtIndexPath(const ui::IndexPath &indexPath) const override;
    // A reference of this data source keeps its own path, unchecked. One of another data source is
    // looked for by its asset's item: first at its old path, then in section order, the lowest
    // index of the first section holding an equal item.
    std::optional<ui::IndexPath> indexPathForAssetReference(const VUAssetReference *assetReference) const override;

    // The content never changes; these do nothing.
    void addItem(const QVariant &, const ui::IndexPath &) override {}
    void removeItemAtIndexPath(const ui::IndexPath &) override {}
    void moveItemFromIndexPath(const ui::IndexPath &, const ui::IndexPath &) override {}

private:
    bool _holdsItemAtIndexPath(const ui::IndexPath &indexPath) const;

    SectionedItems _sectionedItems;
};
