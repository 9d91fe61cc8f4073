#include "layouts/VUTesterAssetActionManager.h"

bool VUTesterAssetActionManager::canPerformActionType(qint64 actionType, const VUDisplayAsset *, const VUDisplayAssetCollection *) const
{
    return actionType == VUAssetActionTypeTrash || actionType == VUAssetActionTypeToggleFavorite || actionType == VUAssetActionTypeShare;
}

qint64 VUTesterAssetActionManager::preferredTrashActionTypeOnAssetsByAssetCollection(const VUAssetsByAssetCollection &) const
{
    return VUAssetActionTypeTrash;
}
