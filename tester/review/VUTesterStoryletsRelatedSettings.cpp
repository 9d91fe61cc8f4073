#include "review/VUTesterStoryletsRelatedSettings.h"

#include "playgrounds/VUTesterPlaygroundSettings.h"

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
    setValue(QStringLiteral("titleFontName"), QStringLiteral("10. Neutral Fonts"));
    setValue(QStringLiteral("titleText"), QStringLiteral("This weqk\nin history"));
    setValue(QStringLiteral("subtitleText"), QStringLiteral("Minneapolis, MN"));
    setValue(QStringLiteral("tileKind"), QStringLiteral("10. All"));
    setValue(QStringLiteral("formFactor"), 0);
    setValue(QStringLiteral("orientation"), 1);
    setBackgroundWhite(0.9);
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    setCapturedDataFolder(QDir(documents.isEmpty() ? QDir::homePath() : documents).filePath(QStringLiteral("VistraUITester Captures")));
}

TWModulePtr VUTesterStoryletsRelatedSettings::settingsControllerModule()
{
    auto white = TWSliderRow::rowWithTitle(QStringLiteral("Placeholder White"), QStringLiteral("backgroundWhite"));
    white->minValue(0, 1)->vu_increment(0.05);
    auto folder = TWEditStringRow::rowWithTitle(QStringLiteral("Captured Data Folder"), QStringLiteral("capturedDataFolder"));
    folder->setRequiresText(true);
    return VUTesterPlaygroundModule(QStringLiteral("Storylets & Related"), {
        TWSection::sectionWithRows({TWEditStringRow::rowWithTitle(QStringLiteral("Title"), QStringLiteral("titleText")),
                                    TWEditStringRow::rowWithTitle(QStringLiteral("Subtitle"), QStringLiteral("subtitleText")),
                                    white,
                                    folder},
                                   QStringLiteral("Fonts Review")),
    });
}
