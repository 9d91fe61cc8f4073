#pragma once
// What the browsing components show: assets in sections, addressed by index paths. A data source
// is a snapshot: it never changes once made, and a newer snapshot replaces it through its manager.
// Each has an identifier of its own, so references from an older one can be told apart.

#include "VUAssetReference.h"

#include <QVariant>

class VUAssetsDataSource {
public:
    VUAssetsDataSource();
    virtual ~VUAssetsDataSource() = default;
    VUAssetsDataSource(const VUAssetsDataSource &) = delete;
    VUAssetsDataSource &operator=(const VUAssetsDataSource &) = delete;

    // Unique among the data sources of the process.
    quint64 identifier() const { return m_identifier; }

    // Of () the number of sections, of (s) the number of items in section s; 0 below that.
    virtual quint64 numberOfSubItemsAtIndexPath(const ui::IndexPath &indexPath) const = 0;
    virtual VUAssetReferencePtr assetReferenceAtIndexPath(const ui::IndexPath &indexPath) const = 0;
    // Where the referenced asset stands in this data source; none when it is not here or for no
    // reference.
    virtual std::optional<ui::IndexPath> indexPathForAssetReference(const VUAssetReference *assetReference) const = 0;

    // Edits a data source that supports them; a snapshot that does not ignores them.
    virtual void addItem(const QVariant &item, const ui::IndexPath &indexPath) = 0;
    virtual void removeItemAtIndexPath(const ui::IndexPath &indexPath) = 0;
    virtual void moveItemFromIndexPath(const ui::IndexPath &fromIndexPath, const ui::IndexPath &toIndexPath) = 0;

    qint64 numberOfSections() const { return qint64(numberOfSubItemsAtIndexPath({})); }
    qint64 numberOfItemsInSection(qint64 section) const { return qint64(numberOfSubItemsAtIndexPath({section})); }

private:
    quint64 m_identifier;
};

using VUAssetsDataSourcePtr = std::shared_ptr<VUAssetsDataSource>;
