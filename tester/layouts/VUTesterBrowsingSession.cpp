#include "layouts/VUTesterBrowsingSession.h"

#include "layouts/VUTesterAssetActionManager.h"
#include "layouts/VUTesterDataSourceManager.h"
#include "layouts/VUTesterTilingDataSource.h"
#include "media/VUTesterMediaProvider.h"

std::shared_ptr<VUTesterBrowsingSession> VUTesterBrowsingSession::newBrowsingSession()
{
    auto dataSourceManager = std::make_shared<VUTesterDataSourceManager>(VUTesterTilingDataSource::initWithRandomSectionedItems());
    return std::make_shared<VUTesterBrowsingSession>(std::move(dataSourceManager), std::make_shared<VUTesterAssetActionManager>(),
                                                     std::make_shared<VUTesterMediaProvider>());
}
