#include "playgrounds/VUTesterPlaygroundSettings.h"

TWModulePtr VUTesterPlaygroundModule(const QString &title, std::vector<TWSection> extraSections)
{
    std::vector<TWSection> sections{TWSection::sectionWithRows({VUTesterSettings::playgroundRow(QStringLiteral("Test %1").arg(title))})};
    for (TWSection &section : extraSections)
        sections.push_back(std::move(section));
    sections.push_back(VUTesterSettings::restoreDefaultsSection());
    return TWModule::moduleWithTitle(title, std::move(sections));
}

TWModulePtr VUTesterImagePickerSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Image Picker"));
}

TWModulePtr VUTesterVideoEditorSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Video Editor"));
}

TWModulePtr VUTesterImageManagerSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Image Manager"));
}

TWModulePtr VUTesterSharingSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Sharing"));
}

TWModulePtr VUTesterVistraPickerSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Vistra Picker"));
}

TWModulePtr VUTesterLumoSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Stir Shots"));
}

TWModulePtr VUTesterSampleAccessoryViewSettings::settingsControllerModule()
{
    return VUTesterPlaygroundModule(QStringLiteral("Sample Accessory View"));
}

VUTesterStirShotViewSettings::VUTesterStirShotViewSettings()
{
    declareKey(QStringLiteral("layout"), Kind::Int64);
    declareKey(QStringLiteral("spacing"), Kind::Double);
    declareKey(QStringLiteral("margin"), Kind::Double);
    declareKey(QStringLiteral("verticalFraction"), Kind::Double);
}

void VUTesterStirShotViewSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setLayout(0);
    setSpacing(30);
    setMargin(40);
    setVerticalFraction(0.5);
}

TWModulePtr VUTesterStirShotViewSettings::settingsControllerModule()
{
    auto layout = TWChoiceRow::rowWithTitle(QStringLiteral("Layout"), QStringLiteral("layout"));
    layout->possibleValues({0, 1}, {QStringLiteral("One Up"), QStringLiteral("Sharing")});
    auto spacing = TWSliderRow::rowWithTitle(QStringLiteral("Spacing"), QStringLiteral("spacing"));
    spacing->minValue(0, 100)->vu_increment(1);
    auto margin = TWSliderRow::rowWithTitle(QStringLiteral("Margin"), QStringLiteral("margin"));
    margin->minValue(0, 100)->vu_increment(1);
    auto fraction = TWSliderRow::rowWithTitle(QStringLiteral("Vertical Fraction"), QStringLiteral("verticalFraction"));
    fraction->minValue(0, 1)->vu_increment(0.05);
    return VUTesterPlaygroundModule(QStringLiteral("Stir Shot View"),
                                    {TWSection::sectionWithRows({layout, spacing, margin, fraction}, QStringLiteral("Layout"))});
}
