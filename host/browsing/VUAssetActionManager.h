#pragma once
// Which actions the browsing components offer on an asset: a manager answers whether an action
// can be performed on an asset in a collection, and which trash action a selection gets.

#include "VUDisplayAsset.h"
#include "VUDisplayAssetCollection.h"

#include <utility>
#include <vector>

// The actions a user can take on assets while browsing. The numbers are stored and exchanged, so
// they never change; new actions are added at the end.
enum VUAssetActionType : qint64 {
    VUAssetActionTypeNone = 0,
    VUAssetActionTypeCopy = 1,
    VUAssetActionTypeDuplicate = 2,
    // Moves the assets to the recently deleted album, from where they can still be restored.
    VUAssetActionTypeTrash = 3,
    // Deletes at once, with no way back (in the recently deleted album, or when trash is off).
    VUAssetActionTypeDelete = 4,
    VUAssetActionTypeRestore = 5,
    VUAssetActionTypeHide = 6,
    VUAssetActionTypeUnhide = 7,
    VUAssetActionTypeEdit = 8,
    VUAssetActionTypeToggleFavorite = 9,
    VUAssetActionTypeAddToAlbum = 10,
    VUAssetActionTypeRemoveFromAlbum = 11,
    VUAssetActionTypeMakeKeyPhoto = 12,
    VUAssetActionTypeRotate = 13,
    VUAssetActionTypeAdjustDate = 14,
    VUAssetActionTypeAdjustLocation = 15,
    VUAssetActionTypeShowInAllPhotos = 16,
    VUAssetActionTypeShowOnMap = 17,
    VUAssetActionTypeExport = 18,
    VUAssetActionTypeShare = 19,
    VUAssetActionTypeSlideshow = 20,
};

// A selection: each collection with the assets chosen in it.
using VUAssetsByAssetCollection = std::vector<std::pair<VUDisplayAssetCollectionPtr, std::vector<VUDisplayAssetPtr>>>;

class VUAssetActionManager {
public:
    virtual ~VUAssetActionManager() = default;
    virtual bool canPerformActionType(qint64 actionType, const VUDisplayAsset *asset, const VUDisplayAssetCollection *assetCollection) const = 0;
    // VUAssetActionTypeTrash or VUAssetActionTypeDelete.
    virtual qint64 preferredTrashActionTypeOnAssetsByAssetCollection(const VUAssetsByAssetCollection &assetsByAssetCollection) const = 0;
};

using VUAssetActionManagerPtr = std::shared_ptr<VUAssetActionManager>;
