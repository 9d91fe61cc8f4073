#include "playgrounds/usertransforms/VUTesterUserTransformsSettings.h"

#include "playgrounds/usertransforms/VUTesterUserTransformsPlaygroundViewController.h"

#include <usertransforms/VUUserTransformView.h>

VUTesterUserTransformsSettings::VUTesterUserTransformsSettings()
{
    declareKey(QStringLiteral("minimumScale"), Kind::Double);
    declareKey(QStringLiteral("maximumScale"), Kind::Double);
    declareKey(QStringLiteral("allowsRotation"), Kind::Bool);
    declareKey(QStringLiteral("limitsTranslation"), Kind::Bool);
    declareKey(QStringLiteral("doubleTapScale"), Kind::Double);
    declareKey(QStringLiteral("showsTransform"), Kind::Bool);
}

void VUTesterUserTransformsSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    const VUUserTransformLimits defaults;
    setMinimumScale(defaults.minimumScale);
    setMaximumScale(defaults.maximumScale);
    setAllowsRotation(defaults.allowsRotation);
    setLimitsTranslation(defaults.limitsTranslation);
    setDoubleTapScale(VUUserTransformView::kDefaultDoubleTapScale);
    setShowsTransform(true);
}

VUUserTransformLimits VUTesterUserTransformsSettings::limits() const
{
    return {minimumScale(), maximumScale(), allowsRotation(), limitsTranslation()};
}

TWModulePtr VUTesterUserTransformsSettings::settingsControllerModule()
{
    return TWModule::moduleWithTitle(QStringLiteral("User Transforms"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test User Transforms"),
                                                  [] { return new VUTesterUserTransformsPlaygroundViewController; })}),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Minimum Scale"), QStringLiteral("minimumScale"), 0.1, 1, 0.05),
                                    sliderRow(QStringLiteral("Maximum Scale"), QStringLiteral("maximumScale"), 1, 16, 0.5),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Rotation"), QStringLiteral("allowsRotation")),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Keep Middle Covered"), QStringLiteral("limitsTranslation"))},
                                   QStringLiteral("Limits")),
        TWSection::sectionWithRows({sliderRow(QStringLiteral("Double Tap Scale"), QStringLiteral("doubleTapScale"), 1.5, 8, 0.5),
                                    TWSwitchRow::rowWithTitle(QStringLiteral("Show Transform"), QStringLiteral("showsTransform"))},
                                   QStringLiteral("Gestures")),
        restoreDefaultsSection(),
    });
}
