#include "layouts/VUTesterTilingViewSettings.h"

#include "playgrounds/VUTesterPlaygroundSettings.h"

VUTesterTilingViewSettings::VUTesterTilingViewSettings()
{
    declareKey(QStringLiteral("numberOfSections"), Kind::Int64);
}

void VUTesterTilingViewSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setNumberOfSections(31);
}

TWModulePtr VUTesterTilingViewSettings::settingsControllerModule()
{
    auto sections = TWChoiceRow::rowWithTitle(QStringLiteral("Number of Sections"), QStringLiteral("numberOfSections"));
    sections->possibleValues({0, 31, 3141}, {QStringLiteral("None"), QStringLiteral("Some"), QStringLiteral("Many")});
    return VUTesterPlaygroundModule(QStringLiteral("Tiling View"), {TWSection::sectionWithRows({sections}, QStringLiteral("Data Source"))});
}
