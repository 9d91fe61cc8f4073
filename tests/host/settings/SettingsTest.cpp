#include "settings/TWModule.h"
#include "settings/TWSettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace {

class LeafSettings : public TWSettings {
public:
    LeafSettings()
    {
        declareKey(QStringLiteral("count"), Kind::Int64);
        declareKey(QStringLiteral("small"), Kind::Int32);
        declareKey(QStringLiteral("ratio"), Kind::Double);
        declareKey(QStringLiteral("name"), Kind::String);
        declareKey(QStringLiteral("enabled"), Kind::Bool);
        declareKey(QStringLiteral("place"), Kind::Location);
    }
    void setDefaultValues() override
    {
        TWSettings::setDefaultValues();
        setValue(QStringLiteral("count"), 10);
        setValue(QStringLiteral("ratio"), 1.5);
        setValue(QStringLiteral("name"), QStringLiteral("default"));
        setValue(QStringLiteral("enabled"), true);
    }
};

// The same keys edited by a screen: a choice, a slider, a switch and a folder that must be named;
// "small" and "place" have no row.
class ScreenSettings : public LeafSettings {
public:
    std::shared_ptr<TWModule> settingsModule() const override
    {
        auto count = TWChoiceRow::rowWithTitle(QStringLiteral("Count"), QStringLiteral("count"));
        count->possibleValues({1000, 1, 10}, {QStringLiteral("All"), QStringLiteral("1"), QStringLiteral("Ten")});
        auto ratio = TWSliderRow::rowWithTitle(QStringLiteral("Ratio"), QStringLiteral("ratio"));
        ratio->minValue(0.5, 4)->vu_increment(0.5);
        auto name = TWEditStringRow::rowWithTitle(QStringLiteral("Folder"), QStringLiteral("name"));
        name->setRequiresText(true);
        return TWModule::moduleWithTitle(QStringLiteral("Screen"), {TWSection::sectionWithRows(
            {count, ratio, name, TWSwitchRow::rowWithTitle(QStringLiteral("Enabled"), QStringLiteral("enabled")),
             TWButtonRow::rowWithTitle(QStringLiteral("Count Again"), TWRowAction::actionWithHandler({}))})});
    }
};

class TreeSettings : public TWSettings {
public:
    TreeSettings()
    {
        declareChild(QStringLiteral("first"), new LeafSettings);
        declareChild(QStringLiteral("second"), new LeafSettings);
    }
};

struct ArchiveFixture : ::testing::Test {
    QTemporaryDir dir;
    QString path;
    void SetUp() override
    {
        path = dir.filePath(QStringLiteral("settings.json"));
        TWSettings::setArchivePath(path);
    }
    void writeArchive(const QByteArray &bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

} // namespace

TEST(TWSettings, ConvertsNumbersOnlyWhenNothingIsLost)
{
    LeafSettings s;
    s.restoreDefaultValuesRecursively();
    QString error;
    EXPECT_TRUE(s.setValueForKey(42.0, QStringLiteral("count"), &error));
    EXPECT_EQ(s.valueForKey(QStringLiteral("count")).toLongLong(), 42);
    EXPECT_FALSE(s.setValueForKey(4.5, QStringLiteral("count"), &error));
    EXPECT_FALSE(s.setValueForKey(QStringLiteral("12"), QStringLiteral("count"), &error)) << "a text is never a number";
    EXPECT_FALSE(s.setValueForKey(QVariant::fromValue<qint64>(qint64(1) << 40), QStringLiteral("small"), &error));
    EXPECT_FALSE(s.setValueForKey(true, QStringLiteral("ratio"), &error));
    EXPECT_FALSE(s.setValueForKey(3, QStringLiteral("name"), &error));
    EXPECT_FALSE(s.setValueForKey(1, QStringLiteral("missing"), &error));
    EXPECT_EQ(s.valueForKey(QStringLiteral("count")).toLongLong(), 42) << "refused values change nothing";
    EXPECT_FALSE(s.setValueForKey(TWLocationValue(91, 0), QStringLiteral("place"), &error));
    EXPECT_TRUE(s.setValueForKey(TWLocationValue(48.8566, 2.3522), QStringLiteral("place"), &error));
}

TEST(TWSettings, NotifiesOnlyOnRealChanges)
{
    LeafSettings s;
    s.restoreDefaultValuesRecursively();
    QSignalSpy spy(&s, &TWSettings::valueChanged);
    s.setValueForKey(1.5, QStringLiteral("ratio"));
    s.setValueForKey(10, QStringLiteral("count"));
    EXPECT_EQ(spy.count(), 0);
    s.setValueForKey(2.5, QStringLiteral("ratio"));
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.at(0).at(0).toString(), QStringLiteral("ratio"));
}

TEST(TWSettings, ParsesCommandLineTextByKind)
{
    QVariant v;
    QString error;
    EXPECT_TRUE(TWParseSettingValue(TWSettings::Kind::Bool, QStringLiteral("yes"), &v, &error));
    EXPECT_EQ(v, QVariant(true));
    EXPECT_FALSE(TWParseSettingValue(TWSettings::Kind::Bool, QStringLiteral("maybe"), &v, &error));
    EXPECT_TRUE(TWParseSettingValue(TWSettings::Kind::Int64, QStringLiteral("9223372036854775807"), &v, &error));
    EXPECT_EQ(v.toLongLong(), std::numeric_limits<qint64>::max());
    EXPECT_FALSE(TWParseSettingValue(TWSettings::Kind::Int64, QStringLiteral("12.5"), &v, &error));
    EXPECT_TRUE(TWParseSettingValue(TWSettings::Kind::Location, QStringLiteral("48.85, 2.35"), &v, &error));
    EXPECT_EQ(TWSettingValueText(v), QStringLiteral("48.850000000000001,2.3500000000000001"));
    EXPECT_TRUE(TWParseSettingValue(TWSettings::Kind::Location, QStringLiteral("nil"), &v, &error));
    EXPECT_TRUE(v.isNull());
    EXPECT_FALSE(TWParseSettingValue(TWSettings::Kind::Location, QStringLiteral("48.85"), &v, &error));
}

TEST_F(ArchiveFixture, RoundTripKeepsExactValuesByKeyPath)
{
    auto *tree = TWSettings::createSharedInstance<TreeSettings>();
    TWSettings *first = tree->childSettings(QStringLiteral("first"));
    first->setValueForKey(std::numeric_limits<qint64>::max(), QStringLiteral("count"));
    first->setValueForKey(double(4.0f / 3.0f), QStringLiteral("ratio"));
    first->setValueForKey(TWLocationValue(-33.8688, 151.2093), QStringLiteral("place"));
    first->setValueForKey(QStringLiteral("Zürich\n⏎"), QStringLiteral("name"));
    ASSERT_TRUE(first->save()) << "saving from a child writes the whole tree";

    const QJsonObject stored = QJsonDocument::fromJson([&] {
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }()).object();
    EXPECT_TRUE(stored.contains(QStringLiteral("first.count")));
    EXPECT_TRUE(stored.contains(QStringLiteral("second.ratio")));

    auto *again = TWSettings::createSharedInstance<TreeSettings>();
    EXPECT_EQ(again->valueForKeyPath(QStringLiteral("first.count")).toLongLong(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(again->valueForKeyPath(QStringLiteral("first.ratio")).toDouble(), double(4.0f / 3.0f));
    EXPECT_EQ(again->valueForKeyPath(QStringLiteral("first.name")).toString(), QStringLiteral("Zürich\n⏎"));
    double lat = 0, lon = 0;
    ASSERT_TRUE(TWLocationFromValue(again->valueForKeyPath(QStringLiteral("first.place")), &lat, &lon));
    EXPECT_DOUBLE_EQ(lat, -33.8688);
    EXPECT_EQ(again->valueForKeyPath(QStringLiteral("second.count")).toLongLong(), 10) << "untouched keys keep defaults";
    delete tree;
    delete again;
}

TEST_F(ArchiveFixture, ClearingANilableValueSurvivesARestart)
{
    auto *tree = TWSettings::createSharedInstance<TreeSettings>();
    tree->setValueForKeyPath(TWLocationValue(1, 2), QStringLiteral("first.place"));
    tree->save();
    tree->setValueForKeyPath(QVariant(), QStringLiteral("first.place"));
    tree->save();
    auto *again = TWSettings::createSharedInstance<TreeSettings>();
    EXPECT_TRUE(again->valueForKeyPath(QStringLiteral("first.place")).isNull());
    delete tree;
    delete again;
}

TEST_F(ArchiveFixture, WrongTypedStoredValueIsSkippedAndTheRestApply)
{
    writeArchive(R"({"first.count": "many", "first.ratio": 2.25, "second.enabled": false, "gone.key": 1})");
    auto *tree = TWSettings::createSharedInstance<TreeSettings>();
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("first.count")).toLongLong(), 10);
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("first.ratio")).toDouble(), 2.25);
    EXPECT_FALSE(tree->valueForKeyPath(QStringLiteral("second.enabled")).toBool());
    delete tree;
}

TEST(TWSettings, ValidationTakesOnlyWhatTheRowsOffer)
{
    ScreenSettings s;
    s.restoreDefaultValuesRecursively();
    const struct {
        const char *key;
        QVariant value;
        bool accepted;
    } cases[] = {
        {"count", 1000, true},
        {"count", 10.0, true},
        {"count", 5, false},
        {"count", -1, false},
        {"ratio", 0.5, true},
        {"ratio", 4, true},
        {"ratio", 1.25, true},
        {"ratio", 0.49, false},
        {"ratio", 1e8, false},
        {"name", QStringLiteral("Captures"), true},
        {"name", QString(), false},
        {"name", QStringLiteral("  "), false},
        {"enabled", false, true},
        {"small", -7, true},
        {"place", TWLocationValue(1, 2), true},
        {"ratio", QStringLiteral("1"), false},
    };
    for (const auto &c : cases) {
        QVariant value = c.value;
        QString error;
        EXPECT_EQ(s.validateValue(&value, QString::fromLatin1(c.key), &error), c.accepted) << c.key << " " << c.value.toString().toStdString();
        EXPECT_EQ(error.isEmpty(), c.accepted) << error.toStdString();
    }
    QVariant converted = 10.0;
    ASSERT_TRUE(s.validateValue(&converted, QStringLiteral("count")));
    EXPECT_EQ(converted.typeId(), QMetaType::LongLong) << "validation converts to the key's kind";
}

TEST(TWSettings, RefusalsSayWhatTheRowsOfferAndChangeNothing)
{
    ScreenSettings s;
    s.restoreDefaultValuesRecursively();
    QString error;
    EXPECT_FALSE(s.validateAndSetValueForKeyPath(5, QStringLiteral("count"), &error));
    EXPECT_EQ(error, QStringLiteral("5 is not one of 1000 (All), 1, 10 (Ten)"));
    EXPECT_FALSE(s.validateAndSetValueForKeyPath(9.5, QStringLiteral("ratio"), &error));
    EXPECT_EQ(error, QStringLiteral("9.5 is not within 0.5 to 4"));
    EXPECT_FALSE(s.validateAndSetValueForKeyPath(QString(), QStringLiteral("name"), &error));
    EXPECT_EQ(error, QStringLiteral("\"\" is not a non-blank text"));
    EXPECT_EQ(s.valueForKey(QStringLiteral("count")).toLongLong(), 10);
    EXPECT_EQ(s.valueForKey(QStringLiteral("ratio")).toDouble(), 1.5);

    EXPECT_TRUE(s.setValueForKey(5, QStringLiteral("count"))) << "code is trusted with values no row offers";
    EXPECT_EQ(s.valueForKey(QStringLiteral("count")).toLongLong(), 5);
}

TEST_F(ArchiveFixture, StoredValueNoRowOffersIsSkippedLikeAWronglyTypedOne)
{
    struct ScreenTree : TWSettings {
        ScreenTree() { declareChild(QStringLiteral("screen"), new ScreenSettings); }
    };
    writeArchive(R"({"screen.count": 5, "screen.ratio": 1e8, "screen.name": "", "screen.enabled": false, "screen.small": -3})");
    QStringList warnings;
    static QStringList *captured = nullptr;
    captured = &warnings;
    const QtMessageHandler previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) { *captured << message; });
    std::unique_ptr<ScreenTree> tree(TWSettings::createSharedInstance<ScreenTree>());
    qInstallMessageHandler(previous);
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("screen.count")).toLongLong(), 10);
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("screen.ratio")).toDouble(), 1.5);
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("screen.name")).toString(), QStringLiteral("default"));
    EXPECT_FALSE(tree->valueForKeyPath(QStringLiteral("screen.enabled")).toBool());
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("screen.small")).toLongLong(), -3);
    ASSERT_EQ(warnings.size(), 3) << warnings.join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("screen.count")));
    EXPECT_TRUE(warnings[0].contains(QStringLiteral("5 is not one of 1000 (All), 1, 10 (Ten)")));
}

TEST_F(ArchiveFixture, UnreadableArchiveIsKeptAsideAndDefaultsApply)
{
    const QByteArray garbage("{\"first.count\": 5, oops");
    writeArchive(garbage);
    auto *tree = TWSettings::createSharedInstance<TreeSettings>();
    EXPECT_EQ(tree->valueForKeyPath(QStringLiteral("first.count")).toLongLong(), 10);
    EXPECT_FALSE(QFile::exists(path)) << "the bad file must not stay where the next save would overwrite it";
    const QStringList aside = QDir(dir.path()).entryList({QStringLiteral("settings.json.unreadable-*")});
    ASSERT_EQ(aside.size(), 1);
    QFile kept(dir.filePath(aside.first()));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), garbage);

    ASSERT_TRUE(tree->save());
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(QDir(dir.path()).entryList({QStringLiteral("settings.json.unreadable-*")}).size(), 1);
    delete tree;
}

TEST(TWSettings, KeyPathsResolveThroughChildren)
{
    TreeSettings tree;
    tree.restoreDefaultValuesRecursively();
    EXPECT_EQ(tree.settingsForKeyPath(QStringLiteral("second")), tree.childSettings(QStringLiteral("second")));
    EXPECT_EQ(tree.childSettings(QStringLiteral("second"))->keyPath(), QStringLiteral("second"));
    EXPECT_EQ(tree.childSettings(QStringLiteral("first"))->parentSettings(), &tree);
    EXPECT_EQ(tree.settingsForKeyPath(QStringLiteral("first.count")), nullptr) << "a leaf key is not a settings object";
    QString error;
    EXPECT_FALSE(tree.setValueForKeyPath(1, QStringLiteral("third.count"), &error));
    EXPECT_FALSE(tree.setValueForKeyPath(1, QStringLiteral("first"), &error)) << "a child cannot be replaced";
}
