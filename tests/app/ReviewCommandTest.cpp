// vistra-tester review, run as a user runs it: the strings table, snapshots and a recording.

#include "CliHome.h"
#include "QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

TEST(ReviewCommand, PrintsTheStringsTableAndRefusesUnknownLanguages)
{
    cli::Home home;
    const cli::Result all = home.run({"review", "strings"});
    ASSERT_EQ(all.status, 0) << all.err.toStdString();
    const QStringList lines = all.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_GE(lines.size(), 15);
    EXPECT_EQ(lines[0].split('\t').size(), 23);
    EXPECT_TRUE(lines[0].startsWith("\tVGBestOfLastMonthsStoryletTitleFormatWithNumberOfMonths %lu\t"));

    const cli::Result german = home.run({"review", "strings", "--language", "de", "-o", home.path("de.tsv")});
    ASSERT_EQ(german.status, 0) << german.err.toStdString();
    QFile file(home.path("de.tsv"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList table = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(table.size(), 2);
    EXPECT_TRUE(table[1].startsWith("de\tDas Beste der ⏎letzten 3 Monate\t")) << table[1].toStdString();

    const cli::Result unknown = home.run({"review", "strings", "--language", "xx"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_TRUE(unknown.err.startsWith("vistra-tester review: unknown language 'xx'")) << unknown.err.toStdString();
}

TEST(ReviewCommand, WritesNumberedSnapshotsAndARecording)
{
    cli::Home home;
    QFile blocker(home.path("file"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_EQ(home.run({"review", "fonts", "-o", home.path("file/sheets")}).status, 2);

    const QString folder = home.path("sheets");
    for (const char *name : {"VUTesterStoryletsFontsReview-000.png", "VUTesterStoryletsFontsReview-001.png"}) {
        const cli::Result shot = home.run({"review", "fonts", "-o", folder});
        ASSERT_EQ(shot.status, 0) << shot.err.toStdString();
        EXPECT_EQ(shot.out, QDir(folder).filePath(name) + '\n');
    }

    // One font and one tile kind keep the recording small.
    ASSERT_EQ(home.run({"settings", "set", "storyletsRelatedSettings.titleFontName", "DejaVu Serif"}).status, 0);
    ASSERT_EQ(home.run({"settings", "set", "storyletsRelatedSettings.tileKind", "2"}).status, 0);
    ASSERT_EQ(home.run({"settings", "set", "storyletsRelatedSettings.titleText", "Graph Strings/ja/"}).status, 0);
    const cli::Result recording = home.run({"review", "fonts", "--record", "-o", folder});
    ASSERT_EQ(recording.status, 0) << recording.err.toStdString();
    QFile table(QDir(folder).filePath("VUTesterStoryletsFontsReview.txt"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(table.readAll()).split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].split('\t').size(), 23);
    EXPECT_TRUE(lines[1].startsWith("ja\t過去3か月のベスト\t")) << lines[1].toStdString();
    const QImage collage(QDir(folder).filePath("VUTesterStoryletsFontsReview.png"));
    EXPECT_GT(collage.width(), 22 * collage.height());
}
