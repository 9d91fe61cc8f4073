#pragma once
// Actions on synthetic assets: trash, favourite and share are offered, whatever the asset, and
// trash is the preferred way to remove them.

#include "shell/VUTesterExport.h"

#include <browsing/VUAssetActionManager.h>

class VUTESTER_EXPORT VUTesterAssetActionManager : public VUAssetActionManager {
public:
    bool canPerformActionType(qint64 actionType, const VUDisplayAsset *asset, const VUDisplayAssetCollection *assetCollection) const override;
    qint64 preferredTrashActionTypeOnAssetsByAssetCollection(const VUAssetsByAssetCollection &assetsByAssetCollection) const override;
};
