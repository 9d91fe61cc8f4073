#include "layouts/VUTesterDataSourceManager.h"

#include "layouts/VUTesterTilingDataSource.h"

VUTesterDataSourceManager::VUTesterDataSourceManager(std::shared_ptr<VUTesterTilingDataSource> dataSource)
{
    setAssetsDataSource(std::move(dataSource));
}
