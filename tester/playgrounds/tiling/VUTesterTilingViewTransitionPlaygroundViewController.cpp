#include "playgrounds/tiling/VUTesterTilingViewTransitionPlaygroundViewController.h"

#include "layouts/VUTesterBrowsingSession.h"

#include <browsing/VUOneUpPresentationHelper.h>
#include <browsing/VUTilingView.h>

VUTesterTilingViewTransitionPlaygroundViewController::VUTesterTilingViewTransitionPlaygroundViewController(QObject *parent)
    : ui::ViewController(parent)
    , m_oneUpPresentationHelper(new VUOneUpPresentationHelper(this, [] { return VUTesterBrowsingSession::newBrowsingSession(); }))
{
    setTitle(QStringLiteral("Tiling View Transition"));
}

QWidget *VUTesterTilingViewTransitionPlaygroundViewController::loadView()
{
    m_tilingView = new VUTilingView(VUTesterBrowsingSession::newBrowsingSession());
    connect(m_tilingView, &VUTilingView::itemTapped, this, &VUTesterTilingViewTransitionPlaygroundViewController::_openItemAtIndexPath);
    return m_tilingView;
}

void VUTesterTilingViewTransitionPlaygroundViewController::_openItemAtIndexPath(const ui::IndexPath &indexPath)
{
    const VUAssetReferencePtr reference = m_tilingView->browsingSession()->dataSourceManager()->assetsDataSource()->assetReferenceAtIndexPath(indexPath);
    m_oneUpPresentationHelper->presentOneUpForAssetReference(*reference, true);
}

QList<ui::TappableRow> VUTesterTilingViewTransitionPlaygroundViewController::tappableRows()
{
    QList<ui::TappableRow> rows;
    if (!m_tilingView)
        return rows;
    const VUAssetsDataSourcePtr &source = m_tilingView->browsingSession()->dataSourceManager()->assetsDataSource();
    for (const ui::IndexPath &indexPath : m_tilingView->collectionView()->indexPathsForVisibleItems())
        rows.append({QString(), source->assetReferenceAtIndexPath(indexPath)->asset()->uuid(), [this, indexPath] { _openItemAtIndexPath(indexPath); }});
    return rows;
}
