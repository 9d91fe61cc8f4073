#include "playgrounds/tiling/VUTesterTilingViewPlaygroundViewController.h"

#include "layouts/VUTesterDataSourceManager.h"
#include "layouts/VUTesterTilingDataSource.h"
#include "media/VUTesterMediaProvider.h"

#include <browsing/VUTilingView.h>

VUTesterTilingViewPlaygroundViewController::VUTesterTilingViewPlaygroundViewController(QObject *parent)
    : ui::ViewController(parent)
{
    setTitle(QStringLiteral("Tiling View"));
}

QWidget *VUTesterTilingViewPlaygroundViewController::loadView()
{
    auto dataSourceManager = std::make_shared<VUTesterDataSourceManager>(VUTesterTilingDataSource::initWithRandomSectionedItems());
    auto session = std::make_shared<VUBrowsingSession>(std::move(dataSourceManager), nullptr, std::make_shared<VUTesterMediaProvider>());
    m_tilingView = new VUTilingView(std::move(session));
    return m_tilingView;
}
