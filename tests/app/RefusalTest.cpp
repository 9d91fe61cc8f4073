// Bad arguments are refused with status 2 and a message that names the command, before anything
// is made: no library folder, no output file, no settings. And what is not ours is not changed.

#include "CliHome.h"
#include "QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

struct RefusalTest : ::testing::Test {
    cli::Home home;
    QString library() const { return home.path(QStringLiteral("library")); }
};

} // namespace

TEST_F(RefusalTest, BadArgumentsChangeNothingAndSayWhatIsWrong)
{
    struct Case {
        QStringList arguments;
        const char *message;
    };
    const QString png = home.path(QStringLiteral("out.png")), jpg = home.path(QStringLiteral("out.jpg"));
    const Case cases[] = {
        {{"--bogus"}, "vistra-tester: unknown option --bogus"},
        {{"library", "list", "--limit", "0"}, "--limit wants a whole number of at least 1"},
        {{"library", "list", "--limit", "1.5"}, "--limit wants a whole number"},
        {{"library", "highlights", "--subtype", "foo"}, "--subtype must be days, daygroups, months or years"},
        {{"library", "import"}, "import needs a file"},
        {{"library", "import", home.path("missing.jpg")}, "no such file"},
        {{"library", "verify", "--json"}, "Unknown option 'json'"},
        {{"fill", "--long-side", "99"}, "vistra-tester fill: --long-side wants a whole number of at least 100 and at most 15000"},
        {{"fill", "--long-side", "15001"}, "--long-side wants a whole number of at least 100 and at most 15000"},
        {{"fill", "--long-side", "150.5"}, "--long-side wants a whole number"},
        {{"fill", "--radius", "99999999999"}, "--radius: '99999999999' is not one of: Constant, 50m, 500m, 1km, 10km, 25km"},
        {{"fill", "--delete-file-backed", "--count", "2"}, "--delete-file-backed takes no other option"},
        {{"photo", "--size", "NaNxNaN", "-o", jpg}, "--size wants WIDTHxHEIGHT in whole pixels from 1 to 15000"},
        {{"photo", "--size", "1.5x1.5", "-o", jpg}, "--size wants WIDTHxHEIGHT"},
        {{"photo", "--size", "15001x10", "-o", jpg}, "--size wants WIDTHxHEIGHT"},
        {{"photo", "--size", "10x10", "-o", png}, "give a name ending in .jpg or .jpeg"},
        {{"image", "solid", "--size", "nanxnan", "-o", png}, "--size wants WIDTHxHEIGHT"},
        {{"image", "solid", "--size", "1.5x1.5", "-o", png}, "--size wants WIDTHxHEIGHT"},
        {{"image", "solid", "--size", "20000x10", "-o", png}, "--size wants WIDTHxHEIGHT"},
        {{"image", "solid", "--size", "10x10", "-o", jpg}, "give a name ending in .png"},
        {{"image", "fractal", "--center", "nan,nan", "-o", png}, "--center: 'nan,nan' is not X,Y"},
        {{"movie", "--fps", "1e9"}, "--fps wants a number of at least 1 and at most 240"},
        {{"movie", "--duration", "1e9"}, "--duration wants a number of at least 0 and at most 600"},
        {{"movie", "--size", "NaNxNaN"}, "--size wants WIDTHxHEIGHT"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments.join(QLatin1Char(' ')).toStdString());
        const cli::Result result = home.run(QStringList{QStringLiteral("--library"), library()} + c.arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.contains(QLatin1String(c.message))) << result.err.toStdString();
        EXPECT_FALSE(result.err.contains(QLatin1String("vistra-tester :")));
        EXPECT_FALSE(QFileInfo::exists(library()));
    }
    EXPECT_FALSE(QFileInfo::exists(png));
    EXPECT_FALSE(QFileInfo::exists(jpg));
    EXPECT_TRUE(QDir(home.temporary()).isEmpty());
    EXPECT_FALSE(QFileInfo::exists(home.path(QStringLiteral("config/vistra-tester/settings.json"))));
}

TEST_F(RefusalTest, ReadingALibraryThatIsNotThereCreatesNone)
{
    for (const char *action : {"info", "list", "highlights", "verify"}) {
        const cli::Result result = home.run({QStringLiteral("--library"), library(), QStringLiteral("library"), QString::fromLatin1(action)});
        EXPECT_EQ(result.status, 1) << action;
        EXPECT_TRUE(result.err.contains(QStringLiteral("cannot open the photo library at %1: there is no photo library there").arg(library())))
            << result.err.toStdString();
    }
    EXPECT_FALSE(QFileInfo::exists(library()));
}

TEST_F(RefusalTest, UnusableLibraryIsReportedOnceAndPresetsIgnoreCase)
{
    QFile blocker(library());
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const cli::Result fill = home.run({QStringLiteral("--library"), library() + QStringLiteral("/inside"), QStringLiteral("fill"),
                                       QStringLiteral("--preset"), QStringLiteral("panos"), QStringLiteral("--count"), QStringLiteral("1")});
    EXPECT_EQ(fill.status, 1);
    EXPECT_EQ(fill.err.count(QLatin1String("cannot open the photo library")), 1) << fill.err.toStdString();
    EXPECT_TRUE(fill.err.startsWith(QLatin1String("vistra-tester fill: cannot open the photo library at ")));
}

TEST_F(RefusalTest, ARuntimeFolderNameTakenByALinkIsLeftAlone)
{
    const QFileDevice::Permissions shared = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
                                            | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
    const QString victim = home.path(QStringLiteral("victim"));
    ASSERT_TRUE(QDir().mkdir(victim, shared));
    ASSERT_TRUE(QFile::link(victim, QDir(home.temporary()).filePath(QStringLiteral("vistra-tester-runtime-%1").arg(::getuid()))));

    QProcess process;
    home.prepare(process, {QStringLiteral("--library"), library(), QStringLiteral("fill"), QStringLiteral("--count"), QStringLiteral("0")});
    QProcessEnvironment environment = process.processEnvironment();
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    process.setProcessEnvironment(environment);
    process.start();
    ASSERT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    EXPECT_EQ(QFileInfo(victim).permissions() & QFileDevice::Permissions(0x7077), shared);
}
