#include "layouts/VUTesterTilingViewSettings.h"

#include "layouts/VUTesterTilingControllerNullGridViewController.h"
#include "playgrounds/tiling/VUTesterTilingViewPlaygroundViewController.h"
#include "playgrounds/tiling/VUTesterTilingViewTransitionPlaygroundViewController.h"

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
    return TWModule::moduleWithTitle(
        QStringLiteral("Tiling View"),
        {TWSection::sectionWithRows({
             playgroundRow(QStringLiteral("Test Tiling View"), [] { return new VUTesterTilingViewPlaygroundViewController; }),
             playgroundRow(QStringLiteral("Test Tiling View Transition"), [] { return new VUTesterTilingViewTransitionPlaygroundViewController; }),
             // The tiling machinery alone, with bare tiles, to compare the grid with.
             playgroundRow(QStringLiteral("Test Null Grid"), [] { return new VUTesterTilingControllerNullGridViewController; }),
         }),
         TWSection::sectionWithRows({sections}, QStringLiteral("Data Source")), restoreDefaultsSection()});
}
