#include "VUOneUpPresentationHelper.h"

#include "VUOneUpViewController.h"

#include "ui/NavigationController.h"

VUOneUpPresentationHelper::VUOneUpPresentationHelper(ui::ViewController *presentingViewController,
                                                     BrowsingSessionCreationBlock browsingSessionCreationBlock)
    : QObject(presentingViewController)
    , m_presenting(presentingViewController)
    , m_createSession(std::move(browsingSessionCreationBlock))
{
}

bool VUOneUpPresentationHelper::presentOneUpForAssetReference(const VUAssetReference &assetReference, bool animated)
{
    const VUBrowsingSessionPtr session = m_createSession ? m_createSession() : nullptr;
    if (!session || !session->dataSourceManager()->assetsDataSource())
        return false;
    const std::optional<ui::IndexPath> indexPath = session->dataSourceManager()->assetsDataSource()->indexPathForAssetReference(&assetReference);
    if (!indexPath)
        return false;
    m_oneUp = new VUOneUpViewController(session, *indexPath);
    if (ui::NavigationController *navigation = m_presenting->navigationController())
        navigation->pushViewController(m_oneUp, animated);
    else
        m_presenting->presentViewController(m_oneUp, animated);
    return true;
}
