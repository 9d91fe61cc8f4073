#pragma once
// Everything a browser of assets works from: the manager of the data source it shows, the media
// provider it draws with, and the actions it may offer (none without an action manager).

#include "VUAssetActionManager.h"
#include "VUAssetsDataSourceManager.h"
#include "VUMediaProvider.h"

class VUBrowsingSession {
public:
    VUBrowsingSession(VUAssetsDataSourceManagerPtr dataSourceManager, VUAssetActionManagerPtr actionManager, VUMediaProviderPtr mediaProvider)
        : m_dataSourceManager(std::move(dataSourceManager))
        , m_actionManager(std::move(actionManager))
        , m_mediaProvider(std::move(mediaProvider))
    {
    }
    virtual ~VUBrowsingSession() = default;

    const VUAssetsDataSourceManagerPtr &dataSourceManager() const { return m_dataSourceManager; }
    const VUAssetActionManagerPtr &actionManager() const { return m_actionManager; }
    const VUMediaProviderPtr &mediaProvider() const { return m_mediaProvider; }

private:
    VUAssetsDataSourceManagerPtr m_dataSourceManager;
    VUAssetActionManagerPtr m_actionManager;
    VUMediaProviderPtr m_mediaProvider;
};

using VUBrowsingSessionPtr = std::shared_ptr<VUBrowsingSession>;
