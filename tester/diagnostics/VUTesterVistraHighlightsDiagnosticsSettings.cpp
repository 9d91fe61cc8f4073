#include "diagnostics/VUTesterVistraHighlightsDiagnosticsSettings.h"

const VUTesterVistraHighlightsDiagnosticsSettings::Level VUTesterVistraHighlightsDiagnosticsSettings::kLevels[4] = {
    {"Years", 1000000303},
    {"Months", 1000000302},
    {"DayGroups", 1000000304},
    {"Days", 1000000301},
};

TWModulePtr VUTesterVistraHighlightsDiagnosticsSettings::settingsControllerModule()
{
    std::vector<TWRowPtr> rows;
    for (const Level &level : kLevels)
        rows.push_back(TWDrillDownRow::rowWithTitle(QString::fromLatin1(level.title), QString()));
    return TWModule::moduleWithTitle(QStringLiteral("Highlights"), {
        TWSection::sectionWithRows(std::move(rows)),
        restoreDefaultsSection(),
    });
}
