#include "diagnostics/VUTesterVistraHighlightsDiagnosticsSettings.h"

#include "diagnostics/VUTesterAssetCollectionFetchResultDiagnosticsViewController.h"

#include <photos/VHPhotoLibrary.h>

const VUTesterVistraHighlightsDiagnosticsSettings::Level VUTesterVistraHighlightsDiagnosticsSettings::kLevels[4] = {
    {"Years", 1000000303},
    {"Months", 1000000302},
    {"DayGroups", 1000000304},
    {"Days", 1000000301},
};

VHFetchResult<VHAssetCollection> VUTesterVistraHighlightsDiagnosticsSettings::fetchHighlights(qint64 subtype)
{
    VHFetchOptions options = VHPhotoLibrary::sharedPhotoLibrary()->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("startDate"), true}});
    return VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType::Highlight, int(subtype), options);
}

TWModulePtr VUTesterVistraHighlightsDiagnosticsSettings::settingsControllerModule()
{
    std::vector<TWRowPtr> rows;
    for (const Level &level : kLevels) {
        const QString title = QString::fromLatin1(level.title);
        auto row = TWDrillDownRow::rowWithTitle(title, QString());
        row->action(TWUIPushViewControllerRowAction::actionWithViewControllerCreator([title, subtype = level.subtype](const TWRowActionContext &) {
            auto *controller = new VUTesterAssetCollectionFetchResultDiagnosticsViewController(fetchHighlights(subtype));
            controller->setTitle(title);
            return controller;
        }));
        rows.push_back(std::move(row));
    }
    return TWModule::moduleWithTitle(QStringLiteral("Highlights"), {
        TWSection::sectionWithRows(std::move(rows)),
        restoreDefaultsSection(),
    });
}
