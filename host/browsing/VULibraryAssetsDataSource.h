#pragma once
// The photo library's visible assets as a data source snapshot, oldest first: one section per day
// the library has highlights for, titled as those days are, or every asset in one section. The
// assets are read a page at a time as the browser asks for them.

#include "VUAssetsDataSource.h"

#include <photos/VHAsset.h>

#include <vector>

class VULibraryAssetsDataSource : public VUAssetsDataSource {
public:
    enum class Sectioning { ByDay = 0, OneSection = 1 };

    // A library that cannot be opened gives no sections.
    VULibraryAssetsDataSource(std::shared_ptr<VHPhotoLibrary> library, Sectioning sectioning);

    Sectioning sectioning() const { return m_sectioning; }

    quint64 numberOfSubItemsAtIndexPath(const ui::IndexPath &indexPath) const override;
    // Null outside the data source.
    VUAssetReferencePtr assetReferenceAtIndexPath(const ui::IndexPath &indexPath) const override;
    // A reference of this snapshot keeps its place; one of another is found by its library asset.
    std::optional<ui::IndexPath> indexPathForAssetReference(const VUAssetReference *assetReference) const override;

    // The library changes through its own requests, never through a snapshot.
    void addItem(const QVariant &, const ui::IndexPath &) override {}
    void removeItemAtIndexPath(const ui::IndexPath &) override {}
    void moveItemFromIndexPath(const ui::IndexPath &, const ui::IndexPath &) override {}

private:
    struct Section {
        VUDisplayAssetCollectionPtr collection;
        VHFetchResult<VHAsset> assets;
    };
    bool _holds(const ui::IndexPath &indexPath) const;

    Sectioning m_sectioning;
    std::vector<Section> m_sections;
};
