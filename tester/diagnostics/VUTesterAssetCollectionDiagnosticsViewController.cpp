#include "diagnostics/VUTesterAssetCollectionDiagnosticsViewController.h"

namespace detail {

VUTesterAssetCollectionDiagnosticsSection::VUTesterAssetCollectionDiagnosticsSection(const QString &title, VHFetchResult<VHAsset> assets)
    : m_title(QStringLiteral("%1 (%2)").arg(title).arg(assets.count())), m_assets(std::move(assets))
{
}

} // namespace detail

using detail::VUTesterAssetCollectionDiagnosticsSection;

VUTesterAssetCollectionDiagnosticsViewController::VUTesterAssetCollectionDiagnosticsViewController(VHAssetCollection assetCollection,
                                                                                                 QObject *parent)
    : VUTesterObjectDiagnosticsTableViewController(parent), m_assetCollection(std::move(assetCollection))
{
}

VUTesterAssetCollectionDiagnosticsViewController::VUTesterAssetCollectionDiagnosticsViewController()
{
    qFatal("VUTesterAssetCollectionDiagnosticsViewController: use initWithAssetCollection:, not init");
}

VUTesterAssetCollectionDiagnosticsViewController::VUTesterAssetCollectionDiagnosticsViewController(ui::TableViewStyle)
{
    qFatal("VUTesterAssetCollectionDiagnosticsViewController: use initWithAssetCollection:, not initWithStyle:");
}

std::vector<VUTesterAssetCollectionDiagnosticsSection> VUTesterAssetCollectionDiagnosticsViewController::sectionsForAssetCollection(
    const VHAssetCollection &collection)
{
    auto curation = [&collection](VHHighlightCurationType type) {
        VHFetchOptions options = collection.photoLibrary()->librarySpecificFetchOptions();
        options.setHighlightCurationType(type);
        return VHAsset::fetchAssetsInAssetCollection(collection, options);
    };
    std::vector<VUTesterAssetCollectionDiagnosticsSection> sections;
    sections.emplace_back(QStringLiteral("Key Asset"), VHAsset::fetchKeyCuratedAssetInAssetCollection(collection, nullptr));
    sections.emplace_back(QStringLiteral("Summary"), curation(VHHighlightCurationType::Summary));
    sections.emplace_back(QStringLiteral("Extended"), curation(VHHighlightCurationType::Extended));
    sections.emplace_back(QStringLiteral("Curated Assets"), VHAsset::fetchCuratedAssetsInAssetCollection(collection));
    sections.emplace_back(QStringLiteral("Assets"), VHAsset::fetchAssetsInAssetCollection(collection, {}));
    return sections;
}

void VUTesterAssetCollectionDiagnosticsViewController::viewDidLoad()
{
    m_sections = sectionsForAssetCollection(m_assetCollection);
    VUTesterObjectDiagnosticsTableViewController::viewDidLoad();
    reloadData();
}

qint64 VUTesterAssetCollectionDiagnosticsViewController::numberOfSectionsInTableView()
{
    return qint64(m_sections.size());
}

qint64 VUTesterAssetCollectionDiagnosticsViewController::numberOfRowsInSection(qint64 section)
{
    return m_sections[size_t(section)].assets().count();
}

QString VUTesterAssetCollectionDiagnosticsViewController::titleForHeaderInSection(qint64 section)
{
    return m_sections[size_t(section)].title();
}

VUTesterDiagnosticsObject VUTesterAssetCollectionDiagnosticsViewController::objectAtIndexPath(const ui::IndexPath &indexPath)
{
    return m_sections[size_t(indexPath.section())].assets().objectAtIndex(indexPath.item());
}
