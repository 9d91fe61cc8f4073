#include "CliHome.h"
#include "QtPrinters.h"

#include "imageio/PhotoMetadata.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace {

struct FillFixture : ::testing::Test {
    cli::Home home;
    QProcess process;

    void start(const QStringList &arguments)
    {
        home.prepare(process, QStringList{QStringLiteral("--library"), library()} + arguments);
        process.start();
        ASSERT_TRUE(process.waitForStarted());
    }
    int finish()
    {
        EXPECT_TRUE(process.waitForFinished(120000));
        return process.exitCode();
    }
    cli::Result run(const QStringList &arguments) { return home.run(QStringList{QStringLiteral("--library"), library()} + arguments); }
    QString library() const { return home.path(QStringLiteral("library")); }
    QString fileBacked() const { return home.path(QStringLiteral("library/Temporary/FileBackedDebug")); }
    // Every file under the temporary folder, at any depth.
    QStringList temporaryFiles() const
    {
        QStringList files;
        QDirIterator it(home.temporary(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
        while (it.hasNext())
            files << it.next();
        return files;
    }
};

const QStringList kSmallPhotos{QStringLiteral("--media"), QStringLiteral("photo"), QStringLiteral("--long-side"), QStringLiteral("100"),
                               QStringLiteral("--orientation"), QStringLiteral("landscape")};

} // namespace

TEST_F(FillFixture, PrintsALinePerAssetAndWhatWasMadeWhereWhenNotOnATerminal)
{
    start({QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("3"), QStringLiteral("--media"), QStringLiteral("enumerate"),
           QStringLiteral("--destination"), QStringLiteral("file-backed"), QStringLiteral("--long-side"), QStringLiteral("200"),
           QStringLiteral("--aspect-ratio"), QStringLiteral("16x9"), QStringLiteral("--orientation"), QStringLiteral("landscape")});
    ASSERT_EQ(finish(), 0) << process.readAllStandardError().toStdString();
    const QString out = QString::fromUtf8(process.readAllStandardOutput());
    // 16:9 is kept in single precision: 200 / 1.7777778 rounds down to 112.
    EXPECT_TRUE(out.contains(QStringLiteral("asset 1/3: photo 200x112 -> ")));
    EXPECT_TRUE(out.contains(QStringLiteral("asset 3/3: Stir Shot 200x112 -> ")));
    EXPECT_TRUE(out.contains(QStringLiteral("made 3 of 3 assets (1 photo, 1 video, 1 Stir Shot)"))) << out.toStdString();
    EXPECT_EQ(QDir(fileBacked()).entryList(QDir::Files).size(), 4);
    EXPECT_TRUE(temporaryFiles().isEmpty()) << temporaryFiles().join(QLatin1Char(' ')).toStdString();
}

TEST_F(FillFixture, LibraryFillPrintsTheIdentifiersTheLibraryLists)
{
    const cli::Result fill = run(QStringList{QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("2")} + kSmallPhotos);
    ASSERT_EQ(fill.status, 0) << fill.err.toStdString();
    QStringList printed;
    const QRegularExpression imported(QStringLiteral("^asset \\d/2: photo \\d+x\\d+ imported (\\S+)$"), QRegularExpression::MultilineOption);
    for (auto it = imported.globalMatch(fill.out); it.hasNext();)
        printed << it.next().captured(1);
    EXPECT_TRUE(fill.out.contains(QStringLiteral("made 2 of 2 assets (2 photos, 0 videos, 0 Stir Shots)"))) << fill.out.toStdString();

    QStringList listed;
    for (const QString &line : run({QStringLiteral("library"), QStringLiteral("list")}).out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        listed << line.section(QLatin1Char('\t'), 0, 0);
    EXPECT_EQ(printed, listed);
}

TEST_F(FillFixture, JsonGivesAnObjectPerAssetThenASummary)
{
    const cli::Result fill = run(QStringList{QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("1"), QStringLiteral("--json")} + kSmallPhotos);
    ASSERT_EQ(fill.status, 0) << fill.err.toStdString();
    QJsonParseError error;
    const QJsonArray objects = QJsonDocument::fromJson(fill.out.toUtf8(), &error).array();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << fill.out.toStdString();
    ASSERT_EQ(objects.size(), 2);
    const QJsonObject asset = objects[0].toObject(), summary = objects[1].toObject();
    EXPECT_EQ(asset.value("asset").toInt(), 1);
    EXPECT_EQ(asset.value("of").toInt(), 1);
    EXPECT_EQ(asset.value("media").toString(), QStringLiteral("photo"));
    EXPECT_EQ(asset.value("width").toInt(), 100);
    const QString listed = run({QStringLiteral("library"), QStringLiteral("list")}).out.section(QLatin1Char('\t'), 0, 0);
    EXPECT_EQ(asset.value("identifier").toString(), listed);
    EXPECT_EQ(summary.value("made").toInt(), 1);
    EXPECT_EQ(summary.value("photos").toInt(), 1);
    EXPECT_EQ(summary.value("stirShots").toInt(), 0);
    EXPECT_EQ(summary.value("into").toString(), library());
    EXPECT_FALSE(summary.value("cancelled").toBool());
}

TEST_F(FillFixture, ASecondFileBackedRunStopsBeforeDrawingAndSaysHowToClearTheFolder)
{
    const QStringList fill = QStringList{QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("1"), QStringLiteral("--destination"),
                                         QStringLiteral("file-backed")} + kSmallPhotos;
    ASSERT_EQ(run(fill).status, 0);
    const cli::Result again = run(fill);
    EXPECT_EQ(again.status, 1);
    EXPECT_TRUE(again.err.contains(QStringLiteral("IMG_0001.jpg is already in ") + fileBacked())) << again.err.toStdString();
    EXPECT_TRUE(again.err.contains(QLatin1String("vistra-tester fill --delete-file-backed")));
    EXPECT_TRUE(again.out.contains(QLatin1String("made 0 of 1 asset (")));

    const cli::Result cleared = run({QStringLiteral("fill"), QStringLiteral("--delete-file-backed")});
    EXPECT_EQ(cleared.status, 0);
    EXPECT_EQ(cleared.out, QStringLiteral("removed %1\n").arg(fileBacked()));
    EXPECT_FALSE(QFileInfo::exists(fileBacked()));
    EXPECT_EQ(run({QStringLiteral("fill"), QStringLiteral("--delete-file-backed")}).out, QStringLiteral("nothing to remove at %1\n").arg(fileBacked()));
    EXPECT_EQ(run(fill).status, 0);
}

TEST_F(FillFixture, RefusesBadValuesWithStatusTwo)
{
    const QList<QStringList> refused{
        {QStringLiteral("--media"), QStringLiteral("hologram")},
        {QStringLiteral("--count"), QStringLiteral("-4")},
        {QStringLiteral("--destination"), QStringLiteral("enumerate")},
        {QStringLiteral("--preset"), QStringLiteral("Nothing")},
        {QStringLiteral("--location"), QStringLiteral("95,0")},
        {QStringLiteral("--image-orientation"), QStringLiteral("mirrored")},
    };
    for (const QStringList &flags : refused) {
        start(QStringList{QStringLiteral("fill")} + flags);
        EXPECT_EQ(finish(), 2) << flags.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(process.readAllStandardError().startsWith("vistra-tester fill: "));
    }
    EXPECT_FALSE(QDir(fileBacked()).exists());
}

TEST_F(FillFixture, InterruptFinishesTheAssetInProgressAndReportsCancellation)
{
    start({QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("400"), QStringLiteral("--media"), QStringLiteral("photo"),
           QStringLiteral("--destination"), QStringLiteral("file-backed"), QStringLiteral("--long-side"), QStringLiteral("1600")});
    ASSERT_TRUE(process.waitForReadyRead(60000));
    ::kill(pid_t(process.processId()), SIGINT);
    EXPECT_EQ(finish(), 130);
    const QString out = QString::fromUtf8(process.readAllStandardOutput());
    const QRegularExpressionMatch made = QRegularExpression(QStringLiteral("made (\\d+) of 400")).match(out);
    ASSERT_TRUE(made.hasMatch()) << out.toStdString();
    const int count = made.captured(1).toInt();
    EXPECT_GE(count, 1);
    EXPECT_LT(count, 400);
    EXPECT_TRUE(process.readAllStandardError().contains("cancelled"));
    const QStringList files = QDir(fileBacked()).entryList(QDir::Files);
    EXPECT_EQ(files.size(), count) << "every asset made is saved whole, nothing else is left";
    for (const QString &file : files) {
        imageio::PhotoMetadata metadata;
        QString error;
        EXPECT_TRUE(imageio::readPhotoMetadata(QDir(fileBacked()).filePath(file), &metadata, &error)) << error.toStdString();
    }
}

TEST_F(FillFixture, WhatAKilledFillLeftInTheTemporaryFolderGoesWithTheNextStart)
{
    // A Stir Shot's still waits in the temporary folder while its movie is made.
    start({QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("50"), QStringLiteral("--media"), QStringLiteral("stir-shot"),
           QStringLiteral("--destination"), QStringLiteral("file-backed"), QStringLiteral("--long-side"), QStringLiteral("400")});
    ASSERT_TRUE(process.waitForReadyRead(60000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !temporaryFiles().isEmpty(); }, 60000));
    ::kill(pid_t(process.processId()), SIGKILL);
    finish();
    ASSERT_FALSE(temporaryFiles().isEmpty());

    ASSERT_EQ(run({QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("0")}).status, 0);
    EXPECT_TRUE(temporaryFiles().isEmpty()) << temporaryFiles().join(QLatin1Char(' ')).toStdString();
}
