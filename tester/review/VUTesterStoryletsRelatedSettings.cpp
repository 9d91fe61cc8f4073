#include "review/VUTesterStoryletsRelatedSettings.h"

#include "review/VUTesterStoryletsFontsReviewViewController.h"
#include "review/VUTesterStoryletsFontsSettingParameters.h"
#include "ui/NavigationController.h"

#include <QDir>
#include <QStandardPaths>

VUTesterStoryletsRelatedSettings::VUTesterStoryletsRelatedSettings()
{
    // The title dimensions hold either one value or the label of a whole group of values: texts
    // for the font, title and subtitle, and for the others a whole number or a group label.
    declareKey(QStringLiteral("titleFontName"), Kind::String);
    declareKey(QStringLiteral("titleText"), Kind::String);
    declareKey(QStringLiteral("subtitleText"), Kind::String);
    declareKey(QStringLiteral("tileKind"), Kind::Variant);
    declareKey(QStringLiteral("formFactor"), Kind::Variant);
    declareKey(QStringLiteral("orientation"), Kind::Variant);
    declareKey(QStringLiteral("backgroundWhite"), Kind::Double);
    declareKey(QStringLiteral("capturedDataFolder"), Kind::String);
}

void VUTesterStoryletsRelatedSettings::setDefaultValues()
{
    VUTesterSettings::setDefaultValues();
    for (const auto &parameter : VUTesterStoryletsFontsSettingParameters()) {
        parameter->setSettings(this);
        parameter->setDefaultValues();
    }
    setBackgroundWhite(0.9);
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    setCapturedDataFolder(QDir(pictures.isEmpty() ? QDir::homePath() : pictures).filePath(QStringLiteral("VistraUITester Captures")));
}

TWModulePtr VUTesterStoryletsRelatedSettings::settingsControllerModule()
{
    auto review = TWButtonRow::vu_rowWithTitle(QStringLiteral("Fonts Review"), [](ui::ViewController *settingsScreen) {
        if (settingsScreen)
            settingsScreen->presentViewController(new ui::NavigationController(new VUTesterStoryletsFontsReviewViewController), true);
    });
    std::vector<TWRowPtr> rows{review};
    for (const auto &parameter : VUTesterStoryletsFontsSettingParameters())
        for (TWRowPtr &row : parameter->rows())
            rows.push_back(std::move(row));
    auto white = TWSliderRow::rowWithTitle(QStringLiteral("Placeholder White"), QStringLiteral("backgroundWhite"));
    white->minValue(0, 1)->vu_increment(0.05);
    rows.push_back(white);
    auto folder = TWEditStringRow::rowWithTitle(QStringLiteral("Captured Data Folder"), QStringLiteral("capturedDataFolder"));
    folder->setRequiresText(true);
    rows.push_back(folder);
    return TWModule::moduleWithTitle(QStringLiteral("Storylets & Related"),
                                     {TWSection::sectionWithRows(std::move(rows), QStringLiteral("Fonts Review")), restoreDefaultsSection()});
}
