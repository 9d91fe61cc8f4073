#include "QtPrinters.h"

#include "imageio/PhotoMetadata.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

namespace {

struct FillFixture : ::testing::Test {
    QTemporaryDir home;
    QProcess process;

    void start(const QStringList &arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VISTRA_TESTER_PATH), QStringList{QStringLiteral("--library"), library()} + arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    int finish()
    {
        EXPECT_TRUE(process.waitForFinished(120000));
        return process.exitCode();
    }
    QString library() const { return home.filePath(QStringLiteral("library")); }
    QString fileBacked() const { return home.filePath(QStringLiteral("library/Temporary/FileBackedDebug")); }
};

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
    EXPECT_TRUE(out.contains(QStringLiteral("made 3 of 3 assets (1 photos, 1 videos, 1 Stir Shots)")));
    EXPECT_EQ(QDir(fileBacked()).entryList(QDir::Files).size(), 4);
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
