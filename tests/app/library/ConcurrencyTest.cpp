// Eight vistra-tester processes on one library at once, as scripts and a user at the window run
// them: fills and imports writing, info, list and highlights reading. None may fail and no asset
// may be lost.

#include "CliHome.h"
#include "TestMedia.h"

#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

using namespace photos::testing;

namespace {

struct CommandRun {
    QStringList arguments;
    cli::Result result;
};

} // namespace

TEST(LibraryConcurrency, EightProcessesAtOnceLoseNothingAndFailNothing)
{
    cli::Home home;
    const QString library = home.path(QStringLiteral("library"));
    const QString photo = home.path(QStringLiteral("shared.jpg"));
    ASSERT_TRUE(writePhoto(photo, {QSize(48, 32), QDateTime::currentDateTime(), std::make_pair(45.0, 7.0), {}}));
    const cli::Result first = home.run({QStringLiteral("--library"), library, QStringLiteral("library"), QStringLiteral("import"), photo});
    ASSERT_EQ(first.status, 0) << first.err.toStdString();

    const QStringList fillPhotos{"fill", "--count", "2", "--media", "photo", "--long-side", "100", "--destination", "library"};
    const QStringList fillVideo{"fill", "--count", "1", "--media", "video", "--long-side", "100", "--destination", "library"};
    const QStringList import{"library", "import", photo};
    const QList<QStringList> readers{{"library", "info"}, {"library", "list"}, {"library", "highlights"}};
    // Each worker runs its commands one after another; the eight workers run side by side.
    QList<QList<QStringList>> workers;
    for (int i = 0; i < 3; ++i)
        workers.append(QList<QStringList>(3, i == 2 ? fillVideo : fillPhotos));
    for (int i = 0; i < 3; ++i)
        workers.append(QList<QStringList>(4, import));
    for (int i = 0; i < 2; ++i)
        workers.append(readers + readers);

    std::mutex mutex;
    QList<CommandRun> runs;
    std::vector<std::thread> threads;
    for (const QList<QStringList> &commands : std::as_const(workers)) {
        threads.emplace_back([&, commands] {
            for (const QStringList &arguments : commands) {
                CommandRun run{arguments, home.run(QStringList{QStringLiteral("--library"), library} + arguments)};
                std::lock_guard lock(mutex);
                runs.append(run);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QSet<QString> made;
    int expected = 1;
    made.insert(first.out.trimmed());
    const QRegularExpression imported(QStringLiteral("imported (\\S+)$"), QRegularExpression::MultilineOption);
    for (const CommandRun &run : std::as_const(runs)) {
        SCOPED_TRACE(run.arguments.join(QLatin1Char(' ')).toStdString());
        EXPECT_EQ(run.result.status, 0) << run.result.err.toStdString();
        EXPECT_TRUE(run.result.err.isEmpty()) << run.result.err.toStdString();
        if (run.arguments.first() == QLatin1String("fill")) {
            expected += run.arguments[2].toInt();
            for (auto it = imported.globalMatch(run.result.out); it.hasNext();)
                made.insert(it.next().captured(1));
        } else if (run.arguments[1] == QLatin1String("import")) {
            ++expected;
            made.insert(run.result.out.trimmed());
        }
    }
    EXPECT_EQ(made.size(), expected);

    const cli::Result list = home.run({QStringLiteral("--library"), library, QStringLiteral("library"), QStringLiteral("list")});
    QSet<QString> listed;
    for (const QString &line : list.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        listed.insert(line.section(QLatin1Char('\t'), 0, 0));
    EXPECT_EQ(listed, made);
    const cli::Result verify = home.run({QStringLiteral("--library"), library, QStringLiteral("library"), QStringLiteral("verify")});
    EXPECT_EQ(verify.status, 0) << verify.out.toStdString();
}
