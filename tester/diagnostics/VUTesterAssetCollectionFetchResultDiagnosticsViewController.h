#pragma once
// Lists the asset collections of a fetch result, one object cell each; choosing one opens its
// diagnostics. Made only from a fetch result: the other initialisers end the process.

#include "diagnostics/VUTesterObjectDiagnosticsTableViewController.h"

#include <photos/VHAssetCollection.h>

class VUTESTER_EXPORT VUTesterAssetCollectionFetchResultDiagnosticsViewController : public VUTesterObjectDiagnosticsTableViewController {
    Q_OBJECT
public:
    explicit VUTesterAssetCollectionFetchResultDiagnosticsViewController(VHFetchResult<VHAssetCollection> fetchResult, QObject *parent = nullptr);
    // Not to be used: a screen without a fetch result would show nothing. Both end the process.
    VUTesterAssetCollectionFetchResultDiagnosticsViewController();
    explicit VUTesterAssetCollectionFetchResultDiagnosticsViewController(ui::TableViewStyle style);

    const VHFetchResult<VHAssetCollection> &fetchResult() const { return m_fetchResult; }

protected:
    qint64 numberOfRowsInSection(qint64 section) override;
    VUTesterDiagnosticsObject objectAtIndexPath(const ui::IndexPath &indexPath) override;
    void didSelectRowAtIndexPath(const ui::IndexPath &indexPath) override;

private:
    VHFetchResult<VHAssetCollection> m_fetchResult;
};
