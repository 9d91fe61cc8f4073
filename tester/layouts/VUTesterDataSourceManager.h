#pragma once
// Holds one synthetic data source for a browsing session; it is never replaced.

#include "shell/VUTesterExport.h"

#include <browsing/VUAssetsDataSourceManager.h>

class VUTesterTilingDataSource;

class VUTESTER_EXPORT VUTesterDataSourceManager : public VUAssetsDataSourceManager {
public:
    explicit VUTesterDataSourceManager(std::shared_ptr<VUTesterTilingDataSource> dataSource);
};
