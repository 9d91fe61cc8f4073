#include "review/VUTesterStoryletsGraphStrings.h"

#include <photos/VHAssetCollection.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "TestFiles.h"

TEST(GraphStrings, IndexesLanguageFoldersAndFormatsTheirTexts)
{
    QTemporaryDir dir;
    ASSERT_TRUE(writeTestFile(dir.filePath("zh-Hans.lproj/Localizable.strings"), "\"VGGenericStoryletTitle\" = \"回忆\";"));
    ASSERT_TRUE(writeTestFile(dir.filePath("En.lproj/Localizable.strings"),
                              "\"VGBestOfLastWeeksStoryletTitleFormatWithNumberOfWeeks %lu\" = \"Best of the\\nlast %lu weeks, 100%%\";\n"
                              "\"VGGenericStoryletTitle\" = \"Two\\\\nlines\";\n"));
    ASSERT_TRUE(writeTestFile(dir.filePath("de.lproj/Localizable.strings"), "\"broken\""));
    ASSERT_TRUE(writeTestFile(dir.filePath("notes.txt"), "not a language"));
    QDir().mkpath(dir.filePath("Resources"));

    const VUTesterStoryletsGraphStrings strings(dir.path());
    EXPECT_EQ(strings.languages(), (QStringList{"de", "En", "zh-Hans"}));
    EXPECT_EQ(strings.localizedStringForKey("VGBestOfLastWeeksStoryletTitleFormatWithNumberOfWeeks %lu", "En"), "Best of the\nlast 3 weeks, 100%");
    // Two characters, backslash and n, become a line break too.
    EXPECT_EQ(strings.localizedStringForKey("VGGenericStoryletTitle", "En"), "Two\nlines");
    EXPECT_EQ(strings.localizedStringForKey("VGGenericStoryletTitle", "zh-Hans"), QString::fromUtf8("回忆"));
    EXPECT_TRUE(strings.localizedStringForKey("VGGenericStoryletTitle", "de").isNull());
    EXPECT_TRUE(strings.localizedStringForKey("VGGenericStoryletTitle", "fr").isNull());
    EXPECT_TRUE(strings.localizedStringForKey("VGPeoplePlaceFormatHome", "En").isNull());
    EXPECT_TRUE(VUTesterStoryletsGraphStrings(dir.filePath("missing")).languages().isEmpty());
}

TEST(GraphStrings, KeysByCategoryAndTheirTitleFonts)
{
    const QStringList &keys = VUTesterStoryletsGraphStrings::keys();
    ASSERT_EQ(keys.size(), 22);
    EXPECT_EQ(keys.first(), "VGBestOfLastMonthsStoryletTitleFormatWithNumberOfMonths %lu");
    EXPECT_EQ(keys.last(), "VGGenericStoryletTitle");
    EXPECT_EQ(VUTesterStoryletsGraphStrings::titleFontNameForKey("VGGenericStoryletTitle"), VHAssetCollection::titleFontNameForTitleCategory(6));
    EXPECT_EQ(VUTesterStoryletsGraphStrings::titleFontNameForKey("VGTripStoryletTypeStringTrip"), VHAssetCollection::titleFontNameForTitleCategory(4));
    EXPECT_TRUE(VUTesterStoryletsGraphStrings::titleFontNameForKey("VGUnknown").isNull());
    EXPECT_TRUE(VUTesterStoryletsGraphStrings::titleFontNameForKey(QString()).isNull());
    EXPECT_EQ(VUTesterFormatWithInteger("%1$lu of %d, %llu%%, %@", 3), "3 of 3, 3%, %@");
}

TEST(GraphStrings, TheShippedFrameworkHasEveryKeyInEveryLanguage)
{
    const VUTesterStoryletsGraphStrings &strings = *VUTesterStoryletsGraphStrings::sharedInstance();
    ASSERT_GE(strings.languages().size(), 14);
    for (const QString &language : {"ar", "he", "zh-Hans", "ja", "ko", "th", "hi", "de", "fi", "en"})
        EXPECT_TRUE(strings.languages().contains(language)) << language.toStdString();
    for (const QString &language : strings.languages())
        for (const QString &key : VUTesterStoryletsGraphStrings::keys()) {
            const QString text = strings.localizedStringForKey(key, language);
            EXPECT_FALSE(text.isEmpty()) << language.toStdString() << " " << key.toStdString();
            EXPECT_FALSE(text.contains('%')) << language.toStdString() << " " << key.toStdString();
        }
    EXPECT_TRUE(strings.localizedStringForKey(VUTesterStoryletsGraphStrings::keys().first(), "de").contains('\n'));
}
