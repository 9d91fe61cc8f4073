#include "playgrounds/activity/VUTesterActivitySettings.h"

#include "playgrounds/activity/VUTesterActivityPlaygroundViewController.h"

VUTesterActivitySettings::VUTesterActivitySettings()
{
    declareKey(QStringLiteral("activityTitle"), Kind::String);
    declareKey(QStringLiteral("duration"), Kind::Double);
    declareKey(QStringLiteral("numberOfSteps"), Kind::Int64);
    declareKey(QStringLiteral("determinate"), Kind::Bool);
    declareKey(QStringLiteral("cancellable"), Kind::Bool);
    declareKey(QStringLiteral("fails"), Kind::Bool);
    declareKey(QStringLiteral("failurePoint"), Kind::Double);
}

void VUTesterActivitySettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setActivityTitle(QStringLiteral("Exporting 10 Items"));
    setDuration(5);
    setNumberOfSteps(10);
    setDeterminate(true);
    setCancellable(true);
    setFails(false);
    setFailurePoint(0.5);
}

TWModulePtr VUTesterActivitySettings::settingsControllerModule()
{
    auto duration = TWSliderRow::rowWithTitle(QStringLiteral("Length (s)"), QStringLiteral("duration"));
    duration->minValue(0.5, 60)->vu_increment(0.5);
    auto steps = TWSliderRow::rowWithTitle(QStringLiteral("Steps"), QStringLiteral("numberOfSteps"));
    steps->minValue(1, 100)->vu_increment(1);
    auto point = TWSliderRow::rowWithTitle(QStringLiteral("Failure Point"), QStringLiteral("failurePoint"));
    point->minValue(0, 1)->vu_increment(0.05);
    point->conditionFormat(QStringLiteral("fails != 0"));
    return TWModule::moduleWithTitle(QStringLiteral("Activity Controller"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Activity Controller"),
                                                  [] { return new VUTesterActivityPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({TWEditStringRow::rowWithTitle(QStringLiteral("Title"), QStringLiteral("activityTitle")), duration, steps,
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Shows Progress"), QStringLiteral("determinate")),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Cancellable"), QStringLiteral("cancellable"))},
                                   QStringLiteral("Activity")),
        TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Fails"), QStringLiteral("fails")), point},
                                   QStringLiteral("Failure")),
        restoreDefaultsSection(),
    });
}
