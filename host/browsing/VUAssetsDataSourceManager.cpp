#include "VUAssetsDataSourceManager.h"

void VUAssetsDataSourceManager::setAssetsDataSource(VUAssetsDataSourcePtr assetsDataSource)
{
    if (assetsDataSource == m_assetsDataSource)
        return;
    m_assetsDataSource = std::move(assetsDataSource);
    Q_EMIT assetsDataSourceChanged();
}
