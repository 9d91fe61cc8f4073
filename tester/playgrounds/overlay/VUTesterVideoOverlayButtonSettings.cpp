#include "playgrounds/overlay/VUTesterVideoOverlayButtonSettings.h"

#include "playgrounds/overlay/VUTesterVideoOverlayButtonPlaygroundViewController.h"

#include <overlay/VUVideoOverlayButton.h>

VUTesterVideoOverlayButtonSettings::VUTesterVideoOverlayButtonSettings()
{
    declareKey(QStringLiteral("buttonSize"), Kind::Int64);
    declareKey(QStringLiteral("pictures"), Kind::Int64);
    declareKey(QStringLiteral("showsLiveVideo"), Kind::Bool);
}

void VUTesterVideoOverlayButtonSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setButtonSize(qint64(VUVideoOverlayButton::Size::Medium));
    setPictures(PicturesLightAndDark);
    setShowsLiveVideo(true);
}

TWModulePtr VUTesterVideoOverlayButtonSettings::settingsControllerModule()
{
    auto size = TWChoiceRow::rowWithTitle(QStringLiteral("Size"), QStringLiteral("buttonSize"));
    size->possibleValues(VUTesterIntegerValues({qint64(VUVideoOverlayButton::Size::Small), qint64(VUVideoOverlayButton::Size::Medium),
                                                qint64(VUVideoOverlayButton::Size::Large)}),
                         {QStringLiteral("Small"), QStringLiteral("Medium"), QStringLiteral("Large")});
    auto pictures = TWChoiceRow::rowWithTitle(QStringLiteral("Pictures"), QStringLiteral("pictures"));
    pictures->possibleValues(VUTesterIntegerValues({PicturesLightAndDark, PicturesLight, PicturesDark}),
                             {QStringLiteral("Light & Dark"), QStringLiteral("Light"), QStringLiteral("Dark")});
    return TWModule::moduleWithTitle(QStringLiteral("Video Overlay Button"), {
        TWSection::sectionWithRows({playgroundRow(QStringLiteral("Test Video Overlay Button"),
                                                  [] { return new VUTesterVideoOverlayButtonPlaygroundViewController(sharedInstance()); })}),
        TWSection::sectionWithRows({size, pictures, TWSwitchRow::rowWithTitle(QStringLiteral("Live Video"), QStringLiteral("showsLiveVideo"))},
                                   QStringLiteral("Buttons")),
        restoreDefaultsSection(),
    });
}
