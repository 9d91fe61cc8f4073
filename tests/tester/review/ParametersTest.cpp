#include "review/VUTesterStoryletsFontsSettingParameters.h"
#include "review/VUTesterStoryletsGraphStrings.h"
#include "review/VUTesterStoryletsRelatedSettings.h"
#include "review/VUTesterStoryletsTitleParameter.h"
#include "ui/BarButtonItem.h"

#include <photos/VHAssetCollection.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "QtPrinters.h"
#include "TestFiles.h"

namespace {

// A settings object of the review with every parameter bound to it, at its defaults.
struct Fixture {
    VUTesterStoryletsRelatedSettings settings;
    std::vector<std::unique_ptr<VUTesterSettingParameter>> parameters = VUTesterStoryletsFontsSettingParameters();

    Fixture()
    {
        settings.setDefaultValues();
        for (const auto &parameter : parameters)
            parameter->setSettings(&settings);
    }
    VUTesterSettingParameter &font() { return *parameters[0]; }
    VUTesterStoryletsTitleParameter &title() { return static_cast<VUTesterStoryletsTitleParameter &>(*parameters[1]); }
    VUTesterSettingParameter &subtitle() { return *parameters[2]; }
    VUTesterSettingParameter &tileKind() { return *parameters[3]; }
    VUTesterSettingParameter &formFactor() { return *parameters[4]; }
    VUTesterSettingParameter &orientation() { return *parameters[5]; }
};

QList<qint64> integers(const QVariantList &values)
{
    QList<qint64> list;
    for (const QVariant &value : values)
        list << value.toLongLong();
    return list;
}

const TWChoiceRow &choiceRow(const std::vector<TWRowPtr> &rows)
{
    return static_cast<const TWChoiceRow &>(*rows.front());
}

QStringList titles(const QList<ui::BarButtonItem *> &items)
{
    QStringList list;
    for (ui::BarButtonItem *item : items) {
        list << item->title();
        delete item;
    }
    return list;
}

bool writeTable(const QString &folder, const QString &language, const QByteArray &table)
{
    return writeTestFile(folder + "/" + language + ".lproj/Localizable.strings", table);
}

} // namespace

TEST(StoryletsParameters, DefaultsAndEnumerationsOfTheSix)
{
    Fixture f;
    EXPECT_EQ(f.settings.valueForKey("titleFontName").toString(), "10. Neutral Fonts");
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "This weqk\nin history");
    EXPECT_EQ(f.settings.valueForKey("subtitleText").toString(), "Minneapolis, MN");
    EXPECT_EQ(f.settings.valueForKey("tileKind").toString(), "10. All");
    EXPECT_EQ(f.settings.valueForKey("formFactor").toLongLong(), 0);
    EXPECT_EQ(f.settings.valueForKey("orientation").toLongLong(), 1);

    // A group chosen as the value stands for its values, in their stored order.
    QStringList neutral;
    for (int category = 1; category <= 6; ++category)
        neutral << VHAssetCollection::titleFontNameForTitleCategory(category);
    EXPECT_EQ(QVariant(f.font().valuesToEnumerate()).toStringList(), neutral);
    EXPECT_EQ(integers(f.tileKind().valuesToEnumerate()), (QList<qint64>{4, 3, 2, 1, 0}));
    EXPECT_EQ(integers(f.formFactor().valuesToEnumerate()), (QList<qint64>{0}));
    f.settings.setValueForKey("10. All", "formFactor");
    EXPECT_EQ(integers(f.formFactor().valuesToEnumerate()), (QList<qint64>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(f.subtitle()._possibleValues().size(), 10);
    EXPECT_EQ(f.subtitle()._possibleValues().value(7).toString(), VUTesterStoryletsTitleParameter::longWelshName());
    EXPECT_EQ(VUTesterStoryletsTitleParameter::longWelshName().count(QChar::SoftHyphen), 8);
    EXPECT_EQ(f.orientation().titleForValue(2), "Lanscape");
}

TEST(StoryletsParameters, RowsListGroupsNumericallyWithIndentedValues)
{
    Fixture f;
    const std::vector<TWRowPtr> formFactorRows = f.formFactor().rows();
    ASSERT_EQ(formFactorRows.size(), 1u);
    const TWChoiceRow &formFactor = choiceRow(formFactorRows);
    EXPECT_EQ(formFactor.title(), "Form Factor");
    EXPECT_EQ(formFactor.valueKeyPath(), "formFactor");
    EXPECT_EQ(formFactor.titles(), (QStringList{"   4” Corvel", "ALL", "   4” Corvel", "   4.7” Corvel", "   5.5” Corvel", "   9.7” Plenna",
                                                "   12.9” Plenna", "   TV"}));
    EXPECT_EQ(formFactor.values().value(1).toString(), "10. All");

    // "5. Graph Strings" comes before "10. Strings" here, though not in a plain text order.
    const std::vector<TWRowPtr> titleRows = f.title().rows();
    ASSERT_EQ(titleRows.size(), 2u);
    const QStringList titleTitles = choiceRow(titleRows).titles();
    EXPECT_EQ(titleTitles.mid(0, 3), (QStringList{"   This weqk⏎in history", "GRAPH STRINGS", "STRINGS"}));
    EXPECT_EQ(titleTitles.last(), "   米兰中央车站,⏎意大利");
    // The free-text row hides while a group is the value.
    EXPECT_TRUE(titleRows[1]->isVisible(&f.settings));
    f.settings.setValueForKey("20. Overlapping Strings", "titleText");
    EXPECT_FALSE(titleRows[1]->isVisible(&f.settings));
    EXPECT_EQ(f.subtitle().rows().size(), 2u);
    EXPECT_EQ(f.tileKind().rows().size(), 1u);
}

TEST(StoryletsParameters, SteppingWrapsAtBothEndsAndButtonsFollowTheValue)
{
    Fixture f;
    f.formFactor()._selectValueWithOffset(-1);
    EXPECT_EQ(f.settings.valueForKey("formFactor").toLongLong(), 5);
    f.formFactor()._selectValueWithOffset(1);
    EXPECT_EQ(f.settings.valueForKey("formFactor").toLongLong(), 0);
    f.formFactor()._selectValueWithOffset(13);
    EXPECT_EQ(f.settings.valueForKey("formFactor").toLongLong(), 1);

    // A group label is not among the values: any step goes to the first value.
    EXPECT_TRUE(titles(f.tileKind().barButtonItems()).isEmpty());
    f.tileKind()._selectValueWithOffset(-1);
    EXPECT_EQ(f.settings.valueForKey("tileKind").toLongLong(), 4);
    EXPECT_EQ(titles(f.tileKind().barButtonItems()), (QStringList{"◀", "Tile Kind", "▶"}));
    f.tileKind()._selectValueWithOffset(-1);
    EXPECT_EQ(f.settings.valueForKey("tileKind").toLongLong(), 0);

    // Fonts: groups in text order, each font once.
    const QVariantList fonts = f.font()._possibleValues();
    EXPECT_EQ(fonts.last().toString(), "Chalkduster");
    const QStringList fontNames = QVariant(fonts).toStringList();
    EXPECT_EQ(QSet<QString>(fontNames.begin(), fontNames.end()).size(), fonts.size());
    f.settings.setValueForKey("Chalkduster", "titleFontName");
    f.font()._selectValueWithOffset(1);
    EXPECT_EQ(f.settings.valueForKey("titleFontName").toString(), fonts.first().toString());
}

TEST(StoryletsParameters, GraphStringsModeWritesItsValueAndEnumeratesEveryLanguageAndKey)
{
    QTemporaryDir dir;
    const QString first = VUTesterStoryletsGraphStrings::keys().first();
    ASSERT_TRUE(writeTable(dir.path(), "de", "\"" + first.toUtf8() + "\" = \"Die letzten %lu Monate\";"));
    ASSERT_TRUE(writeTable(dir.path(), "en", "\"" + first.toUtf8() + "\" = \"Last %lu months\";\n\"VGGenericStoryletTitle\" = \"Memories\";"));
    VUTesterStoryletsGraphStrings strings(dir.path());

    Fixture f;
    f.title().setGraphStrings(&strings);
    EXPECT_EQ(titles(f.title().barButtonItems()), (QStringList{"◀", "Title", "▶"}));
    f.settings.setValueForKey(VUTesterStoryletsTitleParameter::kGraphStringsGroupLabel, "titleText");
    f.title().setSettings(&f.settings);
    ASSERT_TRUE(f.title()._shouldUseGraphStrings());
    EXPECT_EQ(titles(f.title().barButtonItems()), (QStringList{"◀", "Language", "▶", "◀", "String", "▶"}));

    const QVariantList all = f.title().valuesToEnumerate();
    ASSERT_EQ(all.size(), 2 * 22);
    EXPECT_EQ(all[0].toString(), "Die letzten 3 Monate//de\t" + first);
    EXPECT_EQ(all[1].toString(), ""); // no text, no suffix
    EXPECT_EQ(all[22].toString(), "Last 3 months//en\t" + first);
    EXPECT_EQ(all[43].toString(), "Memories//en\tVGGenericStoryletTitle");

    int writes = 0;
    QObject::connect(&f.settings, &TWSettings::valueChanged, [&](const QString &key) { writes += key == "titleText"; });
    f.title()._selectLanguageValueWithOffset(-1); // from all languages to the first
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings/de/");
    f.title()._selectLanguageValueWithOffset(-1);
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings/en/");
    f.title()._selectStringValueWithOffset(-1); // from all keys to the first, then back round to the last
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings/en/" + first);
    f.title()._selectStringValueWithOffset(-1);
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings/en/VGGenericStoryletTitle");
    EXPECT_EQ(QVariant(f.title().valuesToEnumerate()).toStringList(), QStringList{"Memories//en\tVGGenericStoryletTitle"});
    f.title()._setCurrentLanguage("en"); // the same language writes nothing
    EXPECT_EQ(writes, 4);
    f.title()._setCurrentLanguage(QString());
    f.title()._setCurrentString(QString());
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings//");

    // A parameter bound to a setting already in the mode continues from its language and key.
    f.settings.setValueForKey("Graph Strings/de/" + first, "titleText");
    VUTesterStoryletsTitleParameter other;
    other.setGraphStrings(&strings);
    other.setSettings(&f.settings);
    other._selectLanguageValueWithOffset(1);
    EXPECT_EQ(f.settings.valueForKey("titleText").toString(), "Graph Strings/en/" + first);
}

TEST(StoryletsParametersDeathTest, AParameterWithoutANameEndsTheProcess)
{
    struct Nameless : VUTesterSettingParameter {
        QString key() const override { return "k"; }
    };
    EXPECT_DEATH(Nameless().defaultValue(), "must give its name");
}
