#include "perf/VUTesterVexoSettings.h"

#include "perf/vexo/VUTesterVexoBaselineViewController.h"

#include "perf/harness/VXPerfHarness.h"
#include "settings/VXSettings.h"
#include "ui/NavigationController.h"

#include <algorithm>

namespace {

// Opens a baseline on the settings' own navigation stack, without its Done button.
TWRowPtr baselineRow(const QString &title, const QString &content)
{
    auto row = TWDrillDownRow::rowWithTitle(title, QString());
    row->action(TWRowAction::actionWithHandler([content](const TWRowActionContext &context) {
        if (VXSettingsIsIndexing() || !context.viewController || !context.viewController->navigationController())
            return;
        auto *baseline = new VUTesterVexoBaselineViewController;
        baseline->navigationItem()->setLeftBarButtonItem(nullptr);
        context.viewController->navigationController()->pushViewController(baseline, true);
        baseline->prepareForScrollTestWithName(QString(), {{VXPerfContentKey, content}}, [](ui::ScrollView *) {});
    }));
    return row;
}

} // namespace

VUTesterVexoSettings::VUTesterVexoSettings()
{
    declareKey(QStringLiteral("sortAlphabetically"), Kind::Bool);
}

void VUTesterVexoSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setSortAlphabetically(false);
}

TWSection VUTesterVexoSettings::_sectionForTestsWithDefinitions(const QList<QVariantMap> &definitions, const QString &conditionFormat)
{
    std::vector<TWRowPtr> rows;
    for (const QVariantMap &definition : definitions) {
        const QString name = definition.value(VXPerfTestNameKey).toString();
        auto row = TWDrillDownRow::rowWithTitle(name, QString());
        row->action(TWRowAction::actionWithHandler([name, definition](const TWRowActionContext &) {
            VUTesterVexoBaselineViewController::registerWithHarness();
            VXPerfHarness::sharedHarness()->runTest(name, definition);
        }));
        rows.push_back(row);
    }
    return TWSection::sectionWithRows(std::move(rows), QStringLiteral("Tests"), conditionFormat);
}

TWModulePtr VUTesterVexoSettings::settingsControllerModule()
{
    const QList<QVariantMap> definitions = VXPerfHarness::sharedHarness()->vexo_testDefinitions();
    QList<QVariantMap> sorted = definitions;
    std::stable_sort(sorted.begin(), sorted.end(), [](const QVariantMap &a, const QVariantMap &b) {
        return a.value(VXPerfTestNameKey).toString().compare(b.value(VXPerfTestNameKey).toString(), Qt::CaseInsensitive) < 0;
    });
    return TWModule::moduleWithTitle(QStringLiteral("Vexo"), {
        TWSection::sectionWithRows({baselineRow(QStringLiteral("Null Collection View"), QStringLiteral("NullCollectionView")),
                                    baselineRow(QStringLiteral("Null Tiling Controller"), QStringLiteral("NullTilingController"))},
                                   QStringLiteral("Baselines")),
        TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Sort Alphabetically"), QStringLiteral("sortAlphabetically"))},
                                   QStringLiteral("Settings")),
        _sectionForTestsWithDefinitions(definitions, QStringLiteral("sortAlphabetically == 0")),
        _sectionForTestsWithDefinitions(sorted, QStringLiteral("sortAlphabetically == 1")),
        restoreDefaultsSection(),
    });
}
