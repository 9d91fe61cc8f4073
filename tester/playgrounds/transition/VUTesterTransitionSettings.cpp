#include "playgrounds/transition/VUTesterTransitionSettings.h"

#include "playgrounds/transition/VUTesterTransitionPlaygroundScreen.h"

VUTesterTransitionSettings::VUTesterTransitionSettings()
{
    declareKey(QStringLiteral("transitionKind"), Kind::Int64);
    declareKey(QStringLiteral("showsPanDistance"), Kind::Bool);
}

void VUTesterTransitionSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setTransitionKind(TransitionKindInteractiveCrossfade);
    setShowsPanDistance(true);
}

TWModulePtr VUTesterTransitionSettings::settingsControllerModule()
{
    auto start = TWButtonRow::vu_rowWithTitle(QStringLiteral("Test Transition"), [](ui::ViewController *settingsScreen) {
        if (settingsScreen)
            VUTesterTransitionPlaygroundScreen::presentPlayground(settingsScreen, *sharedInstance());
    });
    auto kind = TWChoiceRow::rowWithTitle(QStringLiteral("Transition"), QStringLiteral("transitionKind"));
    kind->possibleValues({TransitionKindInteractiveCrossfade, TransitionKindStandardSlide},
                         {QStringLiteral("Interactive Crossfade"), QStringLiteral("Standard Slide")});
    auto distance = TWSwitchRow::rowWithTitle(QStringLiteral("Show Pan Distance"), QStringLiteral("showsPanDistance"));
    return TWModule::moduleWithTitle(QStringLiteral("Transition"), {
        TWSection::sectionWithRows({start}),
        TWSection::sectionWithRows({kind, distance}, QStringLiteral("Options")),
        restoreDefaultsSection(),
    });
}
