#pragma once
// What the browsing components ask of the collection an asset is shown in. Immutable and shared
// by pointer, so a copy is the same object.

#include <QDateTime>
#include <QString>

#include <memory>

class VUDisplayAssetCollection : public std::enable_shared_from_this<VUDisplayAssetCollection> {
public:
    virtual ~VUDisplayAssetCollection() = default;

    // Null when the collection has none.
    virtual QString localizedTitle() const = 0;
    virtual QString localizedSubtitle() const = 0;
    virtual QDateTime startDate() const = 0;
    virtual QDateTime endDate() const = 0;

    std::shared_ptr<const VUDisplayAssetCollection> copy() const { return shared_from_this(); }
};

using VUDisplayAssetCollectionPtr = std::shared_ptr<const VUDisplayAssetCollection>;
