#pragma once
// The assets of one collection in five sections: its key asset, its summary and extended
// curations, its curated assets and all its assets, each headed with its count ("Summary (12)").

#include "diagnostics/VUTesterObjectDiagnosticsTableViewController.h"

#include <photos/VHAsset.h>
#include <photos/VHAssetCollection.h>

#include <vector>

namespace detail {

class VUTESTER_EXPORT VUTesterAssetCollectionDiagnosticsSection {
public:
    // The title carries the number of assets: "%@ (%li)".
    VUTesterAssetCollectionDiagnosticsSection(const QString &title, VHFetchResult<VHAsset> assets);
    const QString &title() const { return m_title; }
    const VHFetchResult<VHAsset> &assets() const { return m_assets; }

private:
    QString m_title;
    VHFetchResult<VHAsset> m_assets;
};

} // namespace detail

class VUTESTER_EXPORT VUTesterAssetCollectionDiagnosticsViewController : public VUTesterObjectDiagnosticsTableViewController {
    Q_OBJECT
public:
    explicit VUTesterAssetCollectionDiagnosticsViewController(VHAssetCollection assetCollection, QObject *parent = nullptr);
    // Not to be used: both end the process.
    VUTesterAssetCollectionDiagnosticsViewController();
    explicit VUTesterAssetCollectionDiagnosticsViewController(ui::TableViewStyle style);

    const VHAssetCollection &assetCollection() const { return m_assetCollection; }
    // Built when the view loads.
    const std::vector<detail::VUTesterAssetCollectionDiagnosticsSection> &sections() const { return m_sections; }

    // The five sections of a collection, in order, fetched from the collection's own library.
    static std::vector<detail::VUTesterAssetCollectionDiagnosticsSection> sectionsForAssetCollection(const VHAssetCollection &collection);

protected:
    void viewDidLoad() override;
    qint64 numberOfSectionsInTableView() override;
    qint64 numberOfRowsInSection(qint64 section) override;
    QString titleForHeaderInSection(qint64 section) override;
    VUTesterDiagnosticsObject objectAtIndexPath(const ui::IndexPath &indexPath) override;

private:
    VHAssetCollection m_assetCollection;
    std::vector<detail::VUTesterAssetCollectionDiagnosticsSection> m_sections;
};
