#include "QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace {

struct CliResult {
    int status;
    QString out;
    QString err;
};

struct CliFixture : ::testing::Test {
    QTemporaryDir home;

    CliResult run(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VISTRA_TESTER_PATH), arguments);
        EXPECT_TRUE(process.waitForFinished(30000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }
    QString archivePath() const { return home.filePath(QStringLiteral("config/vistra-tester/settings.json")); }
    QByteArray archive() const
    {
        QFile file(archivePath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(CliFixture, SetGetAndResetRoundTripThroughTheArchive)
{
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.location"), QStringLiteral("48.8566,2.3522")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("animationsSettings.duration"), QStringLiteral("3.25")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("vexoSettings.sortAlphabetically"), QStringLiteral("true")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("animationsSettings.duration")}).out, QStringLiteral("3.25\n"));
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("libraryFillerSettings.location")}).out,
              QStringLiteral("48.8566,2.3521999999999998\n"));

    const CliResult list = run({QStringLiteral("settings"), QStringLiteral("list")});
    EXPECT_TRUE(list.out.contains(QStringLiteral("vexoSettings.sortAlphabetically = true")));
    EXPECT_TRUE(list.out.contains(QStringLiteral("libraryFillerSettings.internalCancelable = false  (bool, internal: not saved)")));

    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("reset"), QStringLiteral("animationsSettings")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("animationsSettings.duration")}).out, QStringLiteral("2\n"));
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("vexoSettings.sortAlphabetically")}).out, QStringLiteral("true\n"))
        << "resetting one object leaves the others";
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("reset")}).status, 0);
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("vexoSettings.sortAlphabetically")}).out, QStringLiteral("false\n"));
}

TEST_F(CliFixture, RefusalsExitWithStatusTwoAndChangeNothing)
{
    ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.longSide"), QStringLiteral("4000")}).status, 0);
    const QByteArray before = archive();
    const QList<QStringList> refused{
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.longSide"), QStringLiteral("big")},
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.longSide"), QStringLiteral("12.5")},
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.noSuchKey"), QStringLiteral("1")},
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.internalCancelable"), QStringLiteral("true")},
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.location"), QStringLiteral("200,0")},
        {QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings"), QStringLiteral("1")},
        {QStringLiteral("settings"), QStringLiteral("reset"), QStringLiteral("libraryFillerSettings.longSide")},
        {QStringLiteral("settings"), QStringLiteral("frobnicate")},
        {QStringLiteral("screen"), QStringLiteral("nowhere")},
    };
    for (const QStringList &arguments : refused) {
        const CliResult result = run(arguments);
        EXPECT_EQ(result.status, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(result.err.contains(QStringLiteral("vistra-tester "))) << result.err.toStdString();
    }
    EXPECT_EQ(archive(), before);
    EXPECT_TRUE(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.longSide"), QStringLiteral("big")})
                    .err.contains(QStringLiteral("expected a whole number")));
}

// Values that no row of the screen offers would leave a fill waiting forever or drawing nothing.
TEST_F(CliFixture, KeysEditedByRowsRefuseWhatTheRowsDoNotOfferAndSayWhatTheyDo)
{
    const char *const refused[][2] = {
        {"libraryFillerSettings.media", "5"},
        {"libraryFillerSettings.media", "-1"},
        {"libraryFillerSettings.fillDestination", "7"},
        {"libraryFillerSettings.numberOfAssetsToAdd", "-5"},
        {"libraryFillerSettings.aspectRatio", "0"},
        {"libraryFillerSettings.longSide", "100000000"},
        {"libraryFillerSettings.locationRadius", "-5"},
        {"libraryFillerSettings.content", "3"},
        {"tilingViewSettings.numberOfSections", "-1"},
        {"animationsSettings.duration", "-1"},
        {"storyletsRelatedSettings.backgroundWhite", "5"},
        {"storyletsRelatedSettings.capturedDataFolder", ""},
        {"stirShotViewSettings.layout", "2"},
    };
    for (const auto &[key, value] : refused) {
        const CliResult result = run({QStringLiteral("settings"), QStringLiteral("set"), QString::fromLatin1(key), QString::fromLatin1(value)});
        EXPECT_EQ(result.status, 2) << key << " " << value;
        EXPECT_TRUE(result.err.contains(QStringLiteral(" is not "))) << result.err.toStdString();
    }
    EXPECT_TRUE(archive().isEmpty()) << "nothing was saved";
    EXPECT_TRUE(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.media"), QStringLiteral("5")})
                    .err.contains(QStringLiteral("5 is not one of 1000 (Enumerate), 1001 (Random), 0 (Photo), 1 (Video), 2 (Stir Shot)")));
    EXPECT_TRUE(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.longSide"), QStringLiteral("100000000")})
                    .err.contains(QStringLiteral("100000000 is not within 100 to 15000")));

    for (const auto &[key, value] : {std::pair{"libraryFillerSettings.media", "1000"}, std::pair{"libraryFillerSettings.aspectRatio", "1001"},
                                     std::pair{"libraryFillerSettings.longSide", "15000"}, std::pair{"animationsSettings.duration", "0"}})
        EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QString::fromLatin1(key), QString::fromLatin1(value)}).status, 0) << key;
}

TEST_F(CliFixture, StoredValuesNoRowOffersAreSkippedWithAWarning)
{
    QDir().mkpath(QFileInfo(archivePath()).absolutePath());
    QFile file(archivePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"libraryFillerSettings.media": 5, "libraryFillerSettings.longSide": 1e8, "animationsSettings.duration": 3})");
    file.close();
    const CliResult media = run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("libraryFillerSettings.media")});
    EXPECT_EQ(media.status, 0);
    EXPECT_EQ(media.out, QStringLiteral("1001\n"));
    EXPECT_TRUE(media.err.contains(QStringLiteral("libraryFillerSettings.media")) && media.err.contains(QStringLiteral("5 is not one of"))) << media.err.toStdString();
    EXPECT_TRUE(media.err.contains(QStringLiteral("libraryFillerSettings.longSide"))) << media.err.toStdString();
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("libraryFillerSettings.longSide")}).out, QStringLiteral("3200\n"));
    EXPECT_EQ(run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("animationsSettings.duration")}).out, QStringLiteral("3\n"));
}

TEST_F(CliFixture, ALocationSetFromTheCommandLineShowsAsSetOnTheScreen)
{
    const QStringList screen{QStringLiteral("screen"), QStringLiteral("libraryFillerSettings")};
    EXPECT_TRUE(run(screen).out.contains(QStringLiteral("choice \"Location\" internalLocationIsSet = false (tap: push)")));
    ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.location"), QStringLiteral("46.5,6.6")}).status, 0);
    EXPECT_TRUE(run(screen).out.contains(QStringLiteral("choice \"Location\" internalLocationIsSet = true (tap: push)")));
}

TEST_F(CliFixture, TextKeysStoreTextEvenWhenItLooksLikeANumber)
{
    const char *const keys[] = {"storyletsRelatedSettings.subtitleText", "storyletsRelatedSettings.titleText", "storyletsRelatedSettings.capturedDataFolder"};
    for (const char *key : keys)
        ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QString::fromLatin1(key), QStringLiteral("2016")}).status, 0) << key;
    const QJsonObject stored = QJsonDocument::fromJson(archive()).object();
    for (const char *key : keys) {
        EXPECT_TRUE(stored.value(QString::fromLatin1(key)).isString()) << key;
        EXPECT_EQ(stored.value(QString::fromLatin1(key)).toString(), QStringLiteral("2016")) << key;
    }
}

TEST_F(CliFixture, ScreenPrintsAModuleOutlineWithValuesAndChoices)
{
    const CliResult root = run({QStringLiteral("screen")});
    EXPECT_EQ(root.status, 0);
    EXPECT_TRUE(root.out.startsWith(QStringLiteral("VistraUITester\n  section \"Diagnostics\"\n    drill-down \"Highlights\" -> vistraHighlightsDiagnosticsSettings\n")));
    const CliResult filler = run({QStringLiteral("screen"), QStringLiteral("libraryFillerSettings")});
    EXPECT_TRUE(filler.out.contains(QStringLiteral("button \"\" title from internalProgressTitle (now \"\") if internalCancelable != 0")));
    EXPECT_TRUE(filler.out.contains(QStringLiteral("choice \"Media\" media = 1001\n      choices: 1000: Enumerate, 1001: Random, 0: Photo, 1: Video, 2: Stir Shot\n")));
    EXPECT_TRUE(filler.out.contains(QStringLiteral("slider \"Photo Long Side\" longSide = 3200 [100 to 15000 step 100]")));
}

TEST_F(CliFixture, ListAsJsonHasOneObjectPerKeyWithTypedValues)
{
    ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.location"), QStringLiteral("46.5,6.625")}).status, 0);
    ASSERT_EQ(run({QStringLiteral("settings"), QStringLiteral("set"), QStringLiteral("libraryFillerSettings.numberOfAssetsToAdd"), QStringLiteral("9223372036854775807")}).status, 0);
    const CliResult result = run({QStringLiteral("settings"), QStringLiteral("list"), QStringLiteral("--json")});
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    QJsonParseError error;
    const QJsonArray list = QJsonDocument::fromJson(result.out.toUtf8(), &error).array();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
    EXPECT_EQ(list.size(), run({QStringLiteral("settings"), QStringLiteral("list")}).out.count(QStringLiteral(" = "))) << "the same keys as the text";
    QHash<QString, QJsonObject> byKey;
    for (const QJsonValue &entry : list) {
        const QJsonObject setting = entry.toObject();
        EXPECT_EQ(setting.keys(), (QStringList{QStringLiteral("internal"), QStringLiteral("keyPath"), QStringLiteral("kind"), QStringLiteral("value")}));
        byKey.insert(setting.value(QStringLiteral("keyPath")).toString(), setting);
    }
    const QJsonObject count = byKey.value(QStringLiteral("libraryFillerSettings.numberOfAssetsToAdd"));
    EXPECT_EQ(count.value(QStringLiteral("kind")).toString(), QStringLiteral("int64"));
    EXPECT_EQ(count.value(QStringLiteral("value")).toInteger(), std::numeric_limits<qint64>::max()) << "whole numbers keep every digit";
    const QJsonObject location = byKey.value(QStringLiteral("libraryFillerSettings.location")).value(QStringLiteral("value")).toObject();
    EXPECT_EQ(location.value(QStringLiteral("latitude")).toDouble(), 46.5);
    EXPECT_EQ(location.value(QStringLiteral("longitude")).toDouble(), 6.625);
    EXPECT_TRUE(byKey.value(QStringLiteral("storyletsRelatedSettings.subtitleText")).value(QStringLiteral("value")).isString());
    EXPECT_TRUE(byKey.value(QStringLiteral("libraryFillerSettings.internalCancelable")).value(QStringLiteral("internal")).toBool());
    EXPECT_FALSE(byKey.value(QStringLiteral("libraryFillerSettings.media")).value(QStringLiteral("internal")).toBool());
    EXPECT_TRUE(run({QStringLiteral("settings"), QStringLiteral("--help")}).out.contains(QStringLiteral("list --json")));
}

TEST_F(CliFixture, ScreenAsJsonDescribesSectionsRowsAndChoices)
{
    const CliResult result = run({QStringLiteral("screen"), QStringLiteral("--json"), QStringLiteral("libraryFillerSettings")});
    ASSERT_EQ(result.status, 0) << result.err.toStdString();
    const QJsonArray screens = QJsonDocument::fromJson(result.out.toUtf8()).array();
    ASSERT_EQ(screens.size(), 1);
    const QJsonObject screen = screens[0].toObject();
    EXPECT_EQ(screen.value(QStringLiteral("title")).toString(), QStringLiteral("Library Filler"));
    const QJsonArray sections = screen.value(QStringLiteral("sections")).toArray();
    ASSERT_EQ(sections.size(), 4);
    EXPECT_EQ(sections[1].toObject().value(QStringLiteral("title")).toString(), QStringLiteral("Presets"));
    const QJsonArray rows = sections[2].toObject().value(QStringLiteral("rows")).toArray();
    const QJsonObject media = rows[2].toObject();
    EXPECT_EQ(media.value(QStringLiteral("kind")).toString(), QStringLiteral("choice"));
    EXPECT_EQ(media.value(QStringLiteral("keyPath")).toString(), QStringLiteral("media"));
    EXPECT_EQ(media.value(QStringLiteral("value")).toInteger(), 1001);
    const QJsonArray choices = media.value(QStringLiteral("choices")).toArray();
    ASSERT_EQ(choices.size(), 5);
    EXPECT_EQ(choices[4].toObject(), (QJsonObject{{QStringLiteral("value"), 2}, {QStringLiteral("title"), QStringLiteral("Stir Shot")}}));
    const QJsonObject longSide = rows[5].toObject();
    EXPECT_EQ(longSide.value(QStringLiteral("minimum")).toDouble(), 100);
    EXPECT_EQ(longSide.value(QStringLiteral("maximum")).toDouble(), 15000);
    EXPECT_EQ(longSide.value(QStringLiteral("step")).toDouble(), 100);
    const QJsonObject progress = sections[0].toObject().value(QStringLiteral("rows")).toArray()[1].toObject();
    EXPECT_EQ(progress.value(QStringLiteral("condition")).toString(), QStringLiteral("internalCancelable != 0"));
    EXPECT_EQ(progress.value(QStringLiteral("titleKeyPath")).toString(), QStringLiteral("internalProgressTitle"));

    const QJsonObject root = QJsonDocument::fromJson(run({QStringLiteral("screen"), QStringLiteral("--json")}).out.toUtf8()).array()[0].toObject();
    const QJsonObject highlights = root.value(QStringLiteral("sections")).toArray()[0].toObject().value(QStringLiteral("rows")).toArray()[0].toObject();
    EXPECT_EQ(highlights.value(QStringLiteral("target")).toString(), QStringLiteral("vistraHighlightsDiagnosticsSettings"));
    EXPECT_TRUE(run({QStringLiteral("screen"), QStringLiteral("--help")}).out.contains(QStringLiteral("--json")));
}

TEST_F(CliFixture, UnreadableArchiveStartsFromDefaultsAndIsKept)
{
    QDir().mkpath(QFileInfo(archivePath()).absolutePath());
    QFile file(archivePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not json");
    file.close();
    const CliResult result = run({QStringLiteral("settings"), QStringLiteral("get"), QStringLiteral("animationsSettings.duration")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, QStringLiteral("2\n"));
    EXPECT_TRUE(result.err.contains(QStringLiteral("is unreadable")));
    EXPECT_EQ(QDir(QFileInfo(archivePath()).absolutePath()).entryList({QStringLiteral("settings.json.unreadable-*")}).size(), 1);
}
