#include "playgrounds/oneup/VUTesterOneUpPresentationSettings.h"

#include "playgrounds/oneup/VUTesterOneUpPresentationPlaygroundViewController.h"

#include "shell/VUTesterModalPresentation.h"

#include "ui/NavigationController.h"

VUTesterOneUpPresentationSettings::VUTesterOneUpPresentationSettings()
{
    declareKey(QStringLiteral("dataSource"), Kind::Int64);
    declareKey(QStringLiteral("librarySections"), Kind::Int64);
    declareKey(QStringLiteral("presentationStyle"), Kind::Int64);
    declareKey(QStringLiteral("initialItem"), Kind::Int64);
    declareKey(QStringLiteral("beamcastScreenWidth"), Kind::Double);
}

void VUTesterOneUpPresentationSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    setDataSource(DataSourceSynthetic);
    setLibrarySections(LibrarySectionsByDay);
    setPresentationStyle(PresentationStylePush);
    setInitialItem(0);
    setBeamcastScreenWidth(240);
}

TWModulePtr VUTesterOneUpPresentationSettings::settingsControllerModule()
{
    auto start = TWButtonRow::vu_rowWithTitle(QStringLiteral("Test 1-Up Presentation"), [](ui::ViewController *settingsScreen) {
        if (!settingsScreen)
            return;
        auto *playground = new VUTesterOneUpPresentationPlaygroundViewController(*sharedInstance());
        if (sharedInstance()->presentationStyle() == PresentationStyleModal || !settingsScreen->navigationController())
            vutester_presentViewController(settingsScreen, playground, true, false);
        else
            settingsScreen->navigationController()->pushViewController(playground, true);
    });
    auto source = TWChoiceRow::rowWithTitle(QStringLiteral("Data Source"), QStringLiteral("dataSource"));
    source->possibleValues(VUTesterIntegerValues({DataSourceSynthetic, DataSourcePhotoLibrary}),
                           {QStringLiteral("Synthetic"), QStringLiteral("Photo Library")});
    auto sections = TWChoiceRow::rowWithTitle(QStringLiteral("Sections"), QStringLiteral("librarySections"));
    sections->possibleValues(VUTesterIntegerValues({LibrarySectionsByDay, LibrarySectionsOne}), {QStringLiteral("By Day"), QStringLiteral("One")});
    sections->conditionFormat(QStringLiteral("dataSource == 1"));
    auto style = TWChoiceRow::rowWithTitle(QStringLiteral("Presentation"), QStringLiteral("presentationStyle"));
    style->possibleValues({PresentationStylePush, PresentationStyleModal}, {QStringLiteral("Push"), QStringLiteral("Modal")});
    auto item = TWSliderRow::rowWithTitle(QStringLiteral("Initial Item"), QStringLiteral("initialItem"));
    item->minValue(0, 20)->vu_increment(1);
    auto width = TWSliderRow::rowWithTitle(QStringLiteral("Simulated Screen Width"), QStringLiteral("beamcastScreenWidth"));
    width->minValue(80, 400)->vu_increment(10);
    return TWModule::moduleWithTitle(QStringLiteral("1-Up Presentation"), {
        TWSection::sectionWithRows({start}),
        TWSection::sectionWithRows({source, sections}, QStringLiteral("Content")),
        TWSection::sectionWithRows({style, item}, QStringLiteral("Browser")),
        TWSection::sectionWithRows({width}, QStringLiteral("Beamcast")),
        restoreDefaultsSection(),
    });
}
