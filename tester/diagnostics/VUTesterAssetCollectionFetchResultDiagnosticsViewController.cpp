#include "diagnostics/VUTesterAssetCollectionFetchResultDiagnosticsViewController.h"

#include "diagnostics/VUTesterAssetCollectionDiagnosticsViewController.h"

#include "ui/NavigationController.h"

VUTesterAssetCollectionFetchResultDiagnosticsViewController::VUTesterAssetCollectionFetchResultDiagnosticsViewController(
    VHFetchResult<VHAssetCollection> fetchResult, QObject *parent)
    : VUTesterObjectDiagnosticsTableViewController(parent), m_fetchResult(std::move(fetchResult))
{
}

VUTesterAssetCollectionFetchResultDiagnosticsViewController::VUTesterAssetCollectionFetchResultDiagnosticsViewController()
{
    qFatal("VUTesterAssetCollectionFetchResultDiagnosticsViewController: use initWithFetchResult:, not init");
}

VUTesterAssetCollectionFetchResultDiagnosticsViewController::VUTesterAssetCollectionFetchResultDiagnosticsViewController(ui::TableViewStyle)
{
    qFatal("VUTesterAssetCollectionFetchResultDiagnosticsViewController: use initWithFetchResult:, not initWithStyle:");
}

qint64 VUTesterAssetCollectionFetchResultDiagnosticsViewController::numberOfRowsInSection(qint64)
{
    return m_fetchResult.count();
}

VUTesterDiagnosticsObject VUTesterAssetCollectionFetchResultDiagnosticsViewController::objectAtIndexPath(const ui::IndexPath &indexPath)
{
    return m_fetchResult.objectAtIndex(indexPath.item());
}

void VUTesterAssetCollectionFetchResultDiagnosticsViewController::didSelectRowAtIndexPath(const ui::IndexPath &indexPath)
{
    const VHAssetCollection collection = m_fetchResult.objectAtIndex(indexPath.item());
    auto *diagnostics = new VUTesterAssetCollectionDiagnosticsViewController(collection);
    diagnostics->setTitle(collection.localizedTitle());
    if (ui::NavigationController *navigation = navigationController())
        navigation->pushViewController(diagnostics, true);
    else
        delete diagnostics;
}
