// vistra-tester library, run as a user would: on the embedded default library and on one given
// with --library, including the failures that must say what is wrong.

#include "TestMedia.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace photos::testing;

namespace {

struct CliResult {
    int status;
    QString out;
    QString err;
};

class LibraryCommandTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_home.isValid()); }

    CliResult run(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.filePath(QStringLiteral("config")));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.filePath(QStringLiteral("data")));
        environment.insert(QStringLiteral("TZ"), QStringLiteral("UTC"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VISTRA_TESTER_PATH), arguments);
        EXPECT_TRUE(process.waitForFinished(30000));
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    QString path(const QString &name) const { return m_home.filePath(name); }
    QString defaultLibrary() const { return path(QStringLiteral("data/vistra-tester/PhotoLibrary")); }

    QTemporaryDir m_home;
};

TEST_F(LibraryCommandTest, ImportListAndVerifyTheEmbeddedLibrary)
{
    const QDateTime date(QDate(2024, 5, 1), QTime(10, 0), Qt::UTC);
    ASSERT_TRUE(writePhoto(path("a.jpg"), {QSize(80, 60), date, std::make_pair(48.85, 2.35), {}}));
    const QString id = QStringLiteral("0A1B2C3D-0000-4000-8000-000000000001");
    ASSERT_TRUE(writePhoto(path("s.jpg"), {QSize(40, 30), date.addDays(40), {}, id}));
    ASSERT_TRUE(writeMovie(path("s.mov"), {QSize(40, 30), date.addDays(40), {}, id}));

    const CliResult imported = run({"library", "import", path("a.jpg")});
    EXPECT_EQ(imported.status, 0);
    const CliResult paired = run({"library", "import", path("s.jpg"), "--paired", path("s.mov"), "--move"});
    EXPECT_EQ(paired.status, 0) << paired.err.toStdString();
    EXPECT_TRUE(QFileInfo::exists(path("a.jpg")));  // copied
    EXPECT_FALSE(QFileInfo::exists(path("s.mov"))); // moved

    const CliResult info = run({"library", "info"});
    EXPECT_EQ(info.status, 0);
    EXPECT_TRUE(info.out.contains(QStringLiteral("location: ") + defaultLibrary())) << info.out.toStdString();
    EXPECT_TRUE(info.out.contains(QStringLiteral("assets: 2\n")));
    EXPECT_TRUE(info.out.contains(QStringLiteral("moving photos: 1\n")));

    const QStringList lines = run({"library", "list"}).out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0].section('\t', 0, 0) + '\n', imported.out);
    EXPECT_TRUE(lines[0].contains(QStringLiteral("\tphoto\t80x60\t2024-05-01T10:00:00Z\t48.850000,2.350000\t-")))
        << lines[0].toStdString();
    EXPECT_TRUE(lines[1].endsWith(QStringLiteral("\tpaired")));
    EXPECT_EQ(run({"library", "list", "--limit", "1"}).out.count('\n'), 1);

    const CliResult months = run({"library", "highlights", "--subtype", "months"});
    EXPECT_EQ(months.out.count('\n'), 2) << months.out.toStdString();
    EXPECT_TRUE(months.out.startsWith(QStringLiteral("months\t")));

    EXPECT_EQ(run({"library", "verify"}).status, 0);
}

TEST_F(LibraryCommandTest, GivenLibraryIsUsedAndVerifyReportsDamage)
{
    const QString library = path("Elsewhere");
    ASSERT_TRUE(writePhoto(path("a.jpg"), {QSize(32, 32), QDateTime::currentDateTime(), {}, {}}));
    EXPECT_EQ(run({"--library", library, "library", "import", path("a.jpg")}).status, 0);
    EXPECT_TRUE(QFileInfo::exists(library + QStringLiteral("/Catalogue.sqlite")));
    EXPECT_FALSE(QFileInfo::exists(defaultLibrary()));
    EXPECT_TRUE(run({"--library", library, "library", "info"}).out.contains(QStringLiteral("assets: 1\n")));

    QDir originals(library + QStringLiteral("/originals"));
    const QString sub = originals.entryList(QDir::Dirs | QDir::NoDotAndDotDot).first();
    const QString file = originals.filePath(sub + '/' + QDir(originals.filePath(sub)).entryList(QDir::Files).first());
    ASSERT_TRUE(QFile::remove(file));
    const CliResult verify = run({"--library", library, "library", "verify"});
    EXPECT_EQ(verify.status, 1);
    EXPECT_TRUE(verify.out.startsWith(QStringLiteral("missing file: originals/"))) << verify.out.toStdString();
    EXPECT_TRUE(verify.err.contains(QStringLiteral("1 difference(s)")));
}

TEST_F(LibraryCommandTest, BadRequestsSayWhatIsWrong)
{
    struct Case {
        QStringList arguments;
        int status;
        const char *message;
    };
    ASSERT_TRUE(writePhoto(path("lone.jpg"), {QSize(16, 16), QDateTime::currentDateTime(), {}, {}}));
    ASSERT_TRUE(writeMovie(path("lone.mov"), {QSize(16, 16), QDateTime::currentDateTime(), {}, {}}));
    {
        QFile text(path("notes.txt"));
        ASSERT_TRUE(text.open(QIODevice::WriteOnly));
        text.write("hello");
    }
    const Case cases[] = {
        {{"library"}, 2, "an action is needed"},
        {{"library", "shuffle"}, 2, "unknown action 'shuffle'"},
        {{"library", "list", "--limit", "0"}, 2, "--limit wants a number of at least 1"},
        {{"library", "highlights", "--subtype", "weeks"}, 2, "--subtype must be days, daygroups, months or years"},
        {{"library", "import"}, 2, "import needs a file"},
        {{"library", "import", path("missing.jpg")}, 2, "no such file"},
        {{"library", "import", path("lone.jpg"), "--paired", path("lone.mov")}, 1, "has no pairing identifier"},
        {{"library", "import", path("notes.txt")}, 1, "not a readable movie"},
        {{"library", "info", "extra"}, 2, "unexpected argument 'extra'"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const CliResult result = run(c.arguments);
        EXPECT_EQ(result.status, c.status);
        EXPECT_TRUE(result.err.contains(QLatin1String(c.message))) << result.err.toStdString();
    }
    EXPECT_TRUE(run({"library", "info"}).out.contains(QStringLiteral("assets: 0\n")));
    EXPECT_TRUE(QFileInfo::exists(path("lone.mov")));
}

} // namespace
