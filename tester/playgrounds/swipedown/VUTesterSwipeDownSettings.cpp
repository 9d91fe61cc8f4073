#include "playgrounds/swipedown/VUTesterSwipeDownSettings.h"

#include "playgrounds/swipedown/VUTesterSwipeDownPlaygroundViewController.h"

VUTesterSwipeDownSettings::VUTesterSwipeDownSettings()
{
    declareKey(QStringLiteral("dismissalDistance"), Kind::Double);
    declareKey(QStringLiteral("dismissalVelocity"), Kind::Double);
    declareKey(QStringLiteral("rubberBanding"), Kind::Bool);
    declareKey(QStringLiteral("rubberBandCoefficient"), Kind::Double);
    declareKey(QStringLiteral("followsHorizontally"), Kind::Bool);
    declareKey(QStringLiteral("dimsBackground"), Kind::Bool);
    declareKey(QStringLiteral("dimmingDistance"), Kind::Double);
    declareKey(QStringLiteral("minimumBackgroundAlpha"), Kind::Double);
    declareKey(QStringLiteral("springDuration"), Kind::Double);
    declareKey(QStringLiteral("springDampingRatio"), Kind::Double);
}

void VUTesterSwipeDownSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    const VUSwipeDownParameters defaults;
    setDismissalDistance(defaults.dismissalDistance);
    setDismissalVelocity(defaults.dismissalVelocity);
    setRubberBanding(defaults.rubberBanding);
    setRubberBandCoefficient(defaults.rubberBandCoefficient);
    setFollowsHorizontally(defaults.followsHorizontally);
    setDimsBackground(defaults.dimsBackground);
    setDimmingDistance(defaults.dimmingDistance);
    setMinimumBackgroundAlpha(defaults.minimumBackgroundAlpha);
    setSpringDuration(defaults.springDuration);
    setSpringDampingRatio(defaults.springDampingRatio);
}

VUSwipeDownParameters VUTesterSwipeDownSettings::parameters() const
{
    VUSwipeDownParameters parameters;
    parameters.dismissalDistance = dismissalDistance();
    parameters.dismissalVelocity = dismissalVelocity();
    parameters.rubberBanding = rubberBanding();
    parameters.rubberBandCoefficient = rubberBandCoefficient();
    parameters.followsHorizontally = followsHorizontally();
    parameters.dimsBackground = dimsBackground();
    parameters.dimmingDistance = dimmingDistance();
    parameters.minimumBackgroundAlpha = minimumBackgroundAlpha();
    parameters.springDuration = springDuration();
    parameters.springDampingRatio = springDampingRatio();
    return parameters;
}

TWModulePtr VUTesterSwipeDownSettings::settingsControllerModule()
{
    auto coefficient = sliderRow(QStringLiteral("Resistance"), QStringLiteral("rubberBandCoefficient"), 0.1, 1, 0.05);
    coefficient->conditionFormat(QStringLiteral("rubberBanding != 0"));
    auto dimming = sliderRow(QStringLiteral("Dimming Distance"), QStringLiteral("dimmingDistance"), 50, 800, 10);
    dimming->conditionFormat(QStringLiteral("dimsBackground != 0"));
    auto least = sliderRow(QStringLiteral("Least Opacity"), QStringLiteral("minimumBackgroundAlpha"), 0, 1, 0.05);
    least->conditionFormat(QStringLiteral("dimsBackground != 0"));
    return TWModule::moduleWithTitle(QStringLiteral("Swipe Down"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Swipe Down"), [] { return new VUTesterSwipeDownPlaygroundViewController; })}),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Distance"), QStringLiteral("dismissalDistance"), 20, 400, 10),
                                    sliderRow(QStringLiteral("Velocity"), QStringLiteral("dismissalVelocity"), 0, 3000, 50)},
                                   QStringLiteral("Dismiss When Released")),
        TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Rubber Banding"), QStringLiteral("rubberBanding")), coefficient,
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Follow Sideways"), QStringLiteral("followsHorizontally"))},
                                   QStringLiteral("Dragging")),
        TWSection::sectionWithRows({TWSwitchRow::rowWithTitle(QStringLiteral("Dim Background"), QStringLiteral("dimsBackground")), dimming, least},
                                   QStringLiteral("Background")),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Spring Duration"), QStringLiteral("springDuration"), 0.1, 2, 0.05),
                                    sliderRow(QStringLiteral("Damping Ratio"), QStringLiteral("springDampingRatio"), 0.1, 1, 0.05)},
                                   QStringLiteral("Settling")),
        restoreDefaultsSection(),
    });
}
