#pragma once
// Names one asset as a data source showed it: the asset, its collection, where it stood and in
// which data source. A data source that replaced another finds the asset again from it.

#include "VUDisplayAsset.h"
#include "VUDisplayAssetCollection.h"
#include "ui/IndexPath.h"

#include <optional>

class VUAssetReference {
public:
    VUAssetReference(VUDisplayAssetPtr asset, VUDisplayAssetCollectionPtr assetCollection, std::optional<ui::IndexPath> indexPath,
                     quint64 dataSourceIdentifier)
        : m_asset(std::move(asset))
        , m_assetCollection(std::move(assetCollection))
        , m_indexPath(std::move(indexPath))
        , m_dataSourceIdentifier(dataSourceIdentifier)
    {
    }

    const VUDisplayAssetPtr &asset() const { return m_asset; }
    const VUDisplayAssetCollectionPtr &assetCollection() const { return m_assetCollection; }
    // None when the reference was made without a place.
    const std::optional<ui::IndexPath> &indexPath() const { return m_indexPath; }
    quint64 dataSourceIdentifier() const { return m_dataSourceIdentifier; }

private:
    VUDisplayAssetPtr m_asset;
    VUDisplayAssetCollectionPtr m_assetCollection;
    std::optional<ui::IndexPath> m_indexPath;
    quint64 m_dataSourceIdentifier;
};

using VUAssetReferencePtr = std::shared_ptr<const VUAssetReference>;
