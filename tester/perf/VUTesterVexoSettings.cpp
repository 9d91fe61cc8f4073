#include "perf/VUTesterVexoSettings.h"


#include <algorithm>

namespace {
QList<QVariantMap> &definitionsStore()
{
    static QList<QVariantMap> definitions;
    return definitions;
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

void VUTesterVexoSettings::setTestDefinitions(const QList<QVariantMap> &definitions)
{
    definitionsStore() = definitions;
}

QList<QVariantMap> VUTesterVexoSettings::testDefinitions()
{
    return definitionsStore();
}

TWSection VUTesterVexoSettings::_sectionForTestsWithDefinitions(const QList<QVariantMap> &definitions, const QString &conditionFormat)
{
    std::vector<TWRowPtr> rows;
    for (const QVariantMap &definition : definitions)
        rows.push_back(TWDrillDownRow::rowWithTitle(definition.value(QStringLiteral("testName")).toString(), QString()));
    return TWSection::sectionWithRows(std::move(rows), QStringLiteral("Tests"), conditionFormat);
}

TWModulePtr VUTesterVexoSettings::settingsControllerModule()
{
    const QList<QVariantMap> definitions = testDefinitions();
    QList<QVariantMap> sorted = definitions;
    std::stable_sort(sorted.begin(), sorted.end(), [](const QVariantMap &a, const QVariantMap &b) {
        return a.value(QStringLiteral("testName")).toString().compare(b.value(QStringLiteral("testName")).toString(), Qt::CaseInsensitive) < 0;
    });
    return TWModule::moduleWithTitle(QStringLiteral("Vexo"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Null Collection View")), playgroundRow(QStringLiteral("Null Tiling Controller"))},
                                   QStringLiteral("Baselines")),
        TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Sort Alphabetically"), QStringLiteral("sortAlphabetically"))},
                                   QStringLiteral("Settings")),
        _sectionForTestsWithDefinitions(definitions, QStringLiteral("sortAlphabetically == 0")),
        _sectionForTestsWithDefinitions(sorted, QStringLiteral("sortAlphabetically == 1")),
        restoreDefaultsSection(),
    });
}
