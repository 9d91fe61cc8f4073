// vistra-tester perf, as a CI job runs it.

#include "CliHome.h"
#include "QtPrinters.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

TEST(PerfCommand, ListsEachTestWithItsOptionsAndRefusesUnknownNamesWithTheList)
{
    cli::Home home;
    const cli::Result list = home.run({QStringLiteral("perf"), QStringLiteral("list")});
    ASSERT_EQ(list.status, 0) << list.err.toStdString();
    const QStringList lines = list.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 7);
    EXPECT_EQ(lines[0], QStringLiteral("NullScrollView\tcontent=NullScrollView duration=4 speed=2500"));
    EXPECT_EQ(lines[6], QStringLiteral("CrossfadeNavigation\titerations=5 transition=CrossfadeNavigation"));

    const cli::Result unknown = home.run({QStringLiteral("perf"), QStringLiteral("run"), QStringLiteral("NullScroll")});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_TRUE(unknown.out.isEmpty());
    EXPECT_TRUE(unknown.err.contains(QStringLiteral("unknown test 'NullScroll'; the tests are: NullScrollView, NullCollectionView,")))
        << unknown.err.toStdString();
    EXPECT_EQ(home.run({QStringLiteral("perf"), QStringLiteral("run"), QStringLiteral("NullScrollView"), QStringLiteral("--duration"), QStringLiteral("0")}).status, 2);
    EXPECT_EQ(home.run({QStringLiteral("perf"), QStringLiteral("walk")}).status, 2);
}

TEST(PerfCommand, RunPrintsOneJsonObjectOfFrameStatisticsAndTheMeterOnStderr)
{
    cli::Home home;
    const cli::Result run = home.run({QStringLiteral("perf"), QStringLiteral("run"), QStringLiteral("NullScrollView"), QStringLiteral("--duration"),
                                      QStringLiteral("1.2"), QStringLiteral("--json"), QStringLiteral("--meter")});
    ASSERT_EQ(run.status, 0) << run.err.toStdString();
    QJsonParseError error;
    const QJsonObject result = QJsonDocument::fromJson(run.out.toUtf8(), &error).object();
    ASSERT_EQ(error.error, QJsonParseError::NoError) << run.out.toStdString();
    EXPECT_EQ(result.value(QStringLiteral("test")).toString(), QStringLiteral("NullScrollView"));
    EXPECT_GE(result.value(QStringLiteral("frames")).toInt(), 20);
    EXPECT_GT(result.value(QStringLiteral("fps")).toDouble(), 0);
    EXPECT_GT(result.value(QStringLiteral("refreshRate")).toDouble(), 0);
    const QJsonObject frameTime = result.value(QStringLiteral("frameTimeMs")).toObject();
    EXPECT_LE(frameTime.value(QStringLiteral("p50")).toDouble(), frameTime.value(QStringLiteral("max")).toDouble());
    EXPECT_GT(frameTime.value(QStringLiteral("p99")).toDouble(), 0);
    EXPECT_TRUE(result.value(QStringLiteral("framesOverBudget")).isDouble());
    EXPECT_GT(result.value(QStringLiteral("peakRssBytes")).toDouble(), 1 << 20);
    // Once a second: the display link's meter and the test's own, by label.
    EXPECT_TRUE(run.err.contains(QStringLiteral("Display Link ")) && run.err.contains(QStringLiteral(" fps, NullScrollView "))) << run.err.toStdString();
}
