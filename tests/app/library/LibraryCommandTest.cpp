// vistra-tester library, run as a user would: on the embedded default library and on one given
// with --library, including the failures that must say what is wrong.

#include "CliHome.h"
#include "TestMedia.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace photos::testing;

namespace {

// Runs in the child before the program starts: root keeps its identity but loses the powers that
// bypass file permissions, so that a folder without write permission is read-only to it too.
void withoutPermissionOverrides()
{
    if (::geteuid() != 0)
        return;
    for (int capability : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH, CAP_FOWNER})
        ::prctl(PR_CAPBSET_DROP, capability, 0, 0, 0);
}

void setTreeWritable(const QString &root, bool writable)
{
    const auto set = [writable](const QFileInfo &info) {
        const QFileDevice::Permissions read = QFileDevice::ReadOwner | (info.isDir() ? QFileDevice::ExeOwner : QFileDevice::Permissions());
        QFile::setPermissions(info.filePath(), writable ? read | QFileDevice::WriteOwner : read);
    };
    QDirIterator it(root, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        set(it.fileInfo());
    }
    set(QFileInfo(root));
}

QJsonDocument json(const cli::Result &result)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(result.out.toUtf8(), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << result.out.toStdString();
    return document;
}

class LibraryCommandTest : public ::testing::Test {
protected:
    cli::Result run(const QStringList &arguments, const std::function<void()> &modifier = {}) { return m_home.run(arguments, modifier); }
    QString path(const QString &name) const { return m_home.path(name); }
    QString defaultLibrary() const { return path(QStringLiteral("data/vistra-tester/PhotoLibrary")); }

    cli::Home m_home;
};

TEST_F(LibraryCommandTest, ImportListAndVerifyTheEmbeddedLibrary)
{
    const QDateTime date(QDate(2024, 5, 1), QTime(10, 0), Qt::UTC);
    ASSERT_TRUE(writePhoto(path("a.jpg"), {QSize(80, 60), date, std::make_pair(48.85, 2.35), {}}));
    const QString id = QStringLiteral("0A1B2C3D-0000-4000-8000-000000000001");
    ASSERT_TRUE(writePhoto(path("s.jpg"), {QSize(40, 30), date.addDays(40), {}, id}));
    ASSERT_TRUE(writeMovie(path("s.mov"), {QSize(40, 30), date.addDays(40), {}, id}));

    const cli::Result imported = run({"library", "import", path("a.jpg")});
    EXPECT_EQ(imported.status, 0);
    const cli::Result paired = run({"library", "import", path("s.jpg"), "--paired", path("s.mov"), "--move"});
    EXPECT_EQ(paired.status, 0) << paired.err.toStdString();
    EXPECT_TRUE(QFileInfo::exists(path("a.jpg")));  // copied
    EXPECT_FALSE(QFileInfo::exists(path("s.mov"))); // moved

    const cli::Result info = run({"library", "info"});
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

    const cli::Result months = run({"library", "highlights", "--subtype", "months"});
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
    const cli::Result verify = run({"--library", library, "library", "verify"});
    EXPECT_EQ(verify.status, 1);
    EXPECT_TRUE(verify.out.startsWith(QStringLiteral("missing file: originals/"))) << verify.out.toStdString();
    EXPECT_TRUE(verify.err.contains(QStringLiteral("1 difference between"))) << verify.err.toStdString();
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
        {{"library", "list", "--limit", "0"}, 2, "--limit wants a whole number of at least 1"},
        {{"library", "highlights", "--subtype", "weeks"}, 2, "--subtype must be days, daygroups, months or years"},
        {{"library", "import"}, 2, "import needs a file"},
        {{"library", "import", path("missing.jpg")}, 2, "no such file"},
        {{"library", "import", path("lone.jpg"), "--paired", path("lone.mov")}, 1, "has no pairing identifier"},
        {{"library", "import", path("notes.txt")}, 1, "not a readable movie"},
        {{"library", "info", "extra"}, 2, "unexpected argument 'extra'"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        const cli::Result result = run(c.arguments);
        EXPECT_EQ(result.status, c.status);
        EXPECT_TRUE(result.err.contains(QLatin1String(c.message))) << result.err.toStdString();
    }
    EXPECT_TRUE(run({"library", "info"}).out.contains(QStringLiteral("assets: 0\n")));
    EXPECT_TRUE(QFileInfo::exists(path("lone.mov")));
}

TEST_F(LibraryCommandTest, ReadOnlyLibraryCanBeReadButNotChanged)
{
    const QString library = path("Shelved");
    ASSERT_TRUE(writePhoto(path("a.jpg"), {QSize(32, 32), QDateTime::currentDateTime(), {}, {}}));
    ASSERT_EQ(run({"--library", library, "library", "import", path("a.jpg")}).status, 0);
    setTreeWritable(library, false);

    const cli::Result info = run({"--library", library, "library", "info"}, withoutPermissionOverrides);
    EXPECT_EQ(info.status, 0) << info.err.toStdString();
    EXPECT_TRUE(info.out.contains(QStringLiteral("assets: 1\n")));
    const cli::Result list = run({"--library", library, "library", "list"}, withoutPermissionOverrides);
    EXPECT_EQ(list.status, 0) << list.err.toStdString();
    EXPECT_EQ(list.out.count('\n'), 1);
    EXPECT_EQ(run({"--library", library, "library", "highlights"}, withoutPermissionOverrides).status, 0);
    EXPECT_EQ(run({"--library", library, "library", "verify"}, withoutPermissionOverrides).status, 0);
    const cli::Result import = run({"--library", library, "library", "import", path("a.jpg")}, withoutPermissionOverrides);
    EXPECT_EQ(import.status, 1);
    EXPECT_TRUE(import.err.contains(QLatin1String("is read-only"))) << import.err.toStdString();

    setTreeWritable(library, true);
    EXPECT_TRUE(run({"--library", library, "library", "info"}).out.contains(QStringLiteral("assets: 1\n")));
}

TEST_F(LibraryCommandTest, JsonCarriesWhatTheTextShows)
{
    const QDateTime date(QDate(2024, 5, 1), QTime(10, 0), Qt::UTC);
    const QString id = QStringLiteral("0A1B2C3D-0000-4000-8000-000000000002");
    ASSERT_TRUE(writePhoto(path("a.jpg"), {QSize(80, 60), date, std::make_pair(48.85, 2.35), {}}));
    ASSERT_TRUE(writePhoto(path("s.jpg"), {QSize(40, 30), date.addSecs(60), {}, id}));
    ASSERT_TRUE(writeMovie(path("s.mov"), {QSize(40, 30), date.addSecs(60), {}, id}));
    ASSERT_EQ(run({"library", "import", path("a.jpg")}).status, 0);
    ASSERT_EQ(run({"library", "import", path("s.jpg"), "--paired", path("s.mov")}).status, 0);

    const QJsonObject info = json(run({"library", "info", "--json"})).object();
    EXPECT_EQ(info.value("location").toString(), defaultLibrary());
    EXPECT_EQ(info.value("assets").toInt(), 2);
    EXPECT_EQ(info.value("photos").toInt(), 1);
    EXPECT_EQ(info.value("movingPhotos").toInt(), 1);
    EXPECT_GT(info.value("sizeOnDisk").toDouble(), 0);

    const QStringList lines = run({"library", "list"}).out.split('\n', Qt::SkipEmptyParts);
    const QJsonArray assets = json(run({"library", "list", "--json"})).array();
    ASSERT_EQ(assets.size(), 2);
    ASSERT_EQ(lines.size(), 2);
    const QJsonObject first = assets[0].toObject(), second = assets[1].toObject();
    EXPECT_EQ(first.value("identifier").toString(), lines[0].section('\t', 0, 0));
    EXPECT_EQ(first.value("media").toString(), QStringLiteral("photo"));
    EXPECT_EQ(first.value("width").toInt(), 80);
    EXPECT_EQ(first.value("date").toString(), QStringLiteral("2024-05-01T10:00:00Z"));
    EXPECT_NEAR(first.value("location").toObject().value("latitude").toDouble(), 48.85, 1e-6);
    EXPECT_FALSE(first.value("paired").toBool());
    EXPECT_TRUE(second.value("location").isNull());
    EXPECT_TRUE(second.value("paired").toBool());

    const QJsonArray months = json(run({"library", "highlights", "--subtype", "months", "--json"})).array();
    ASSERT_EQ(months.size(), 1);
    EXPECT_EQ(months[0].toObject().value("subtype").toString(), QStringLiteral("months"));
    EXPECT_EQ(months[0].toObject().value("assets").toInt(), 2);
    EXPECT_TRUE(run({"library", "highlights", "--subtype", "years"}).out.contains(QStringLiteral("\t2 assets (2 photos, 0 videos)\t")));
}

// --details prints what the diagnostics screens show of each highlight: its cell's lines, then its
// five sections with their counts; --json carries the same.
TEST_F(LibraryCommandTest, HighlightDetailsAreWhatTheDiagnosticsScreensShow)
{
    const QDateTime date(QDate(2024, 5, 1), QTime(10, 0), Qt::UTC);
    for (int i = 0; i < 3; ++i) {
        const QString photo = path(QStringLiteral("p%1.jpg").arg(i));
        ASSERT_TRUE(writePhoto(photo, {QSize(40, 30), date.addSecs(i * 600), std::make_pair(48.85, 2.35), {}}));
        ASSERT_EQ(run({"library", "import", photo}).status, 0);
    }
    const cli::Result details = run({"library", "highlights", "--subtype", "days", "--details"});
    ASSERT_EQ(details.status, 0) << details.err.toStdString();
    const QStringList lines = details.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 10) << details.out.toStdString();
    EXPECT_EQ(lines[0], QStringLiteral("days #0: Paris"));
    EXPECT_TRUE(lines[2].startsWith(QStringLiteral("  Date Range: "))) << lines[2].toStdString();
    EXPECT_EQ(lines[3], QStringLiteral("  curated: ✅ enriched: ✅"));
    EXPECT_TRUE(lines[4].startsWith(QStringLiteral("  promotionScore: 0."))) << lines[4].toStdString();
    EXPECT_EQ(lines.mid(5), QStringList({"  Key Asset (1)", "  Summary (3)", "  Extended (3)", "  Curated Assets (3)", "  Assets (3)"}));

    const QJsonArray objects = json(run({"library", "highlights", "--subtype", "days", "--details", "--json"})).array();
    ASSERT_EQ(objects.size(), 1);
    const QJsonObject cell = objects[0].toObject().value("cell").toObject();
    EXPECT_EQ(cell.value("title").toString(), QStringLiteral("#0: Paris"));
    EXPECT_EQ(cell.value("lines").toArray().size(), 3);
    const QJsonArray sections = objects[0].toObject().value("sections").toArray();
    ASSERT_EQ(sections.size(), 5);
    EXPECT_EQ(sections[4].toObject().value("title").toString(), QStringLiteral("Assets (3)"));
    EXPECT_EQ(sections[0].toObject().value("count").toInt(), 1);
}

} // namespace
