#include "perf/VUTesterValueFiltersSettings.h"

#include "perf/playgrounds/VUTesterVelocityFilterPlaygroundViewController.h"

VUTesterValueFiltersSettings::VUTesterValueFiltersSettings()
{
    declareKey(QStringLiteral("updateSchedule"), Kind::Int64);
    declareKey(QStringLiteral("computeHorizontalVelocity"), Kind::Bool);
    declareKey(QStringLiteral("computeVerticalVelocity"), Kind::Bool);
}

void VUTesterValueFiltersSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setUpdateSchedule(UpdateScheduleGesture);
    setComputeHorizontalVelocity(true);
    setComputeVerticalVelocity(true);
}

TWModulePtr VUTesterValueFiltersSettings::settingsControllerModule()
{
    auto update = TWChoiceRow::rowWithTitle(QStringLiteral("Update"), QStringLiteral("updateSchedule"));
    update->possibleValues({UpdateScheduleGesture, UpdateScheduleDisplayLink}, {QStringLiteral("Gesture"), QStringLiteral("Display Link")});
    // Titled "Animations" although the root row says "Value Filters": the screen belongs to the
    // animation playground family.
    return TWModule::moduleWithTitle(QStringLiteral("Animations"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Velocity Filter"),
                                                  [] { return new VUTesterVelocityFilterPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({update,
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Horizontal Velocity"), QStringLiteral("computeHorizontalVelocity")),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Vertical Velocity"), QStringLiteral("computeVerticalVelocity"))},
                                   QStringLiteral("Settings")),
        restoreDefaultsSection(),
    });
}
