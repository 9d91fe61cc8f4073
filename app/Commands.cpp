#include "Commands.h"

#include <QTextStream>

#include <iterator>

namespace app {

int runFillCommand(const QStringList &arguments);
int runImageCommand(const QStringList &arguments);
int runScreenCommand(const QStringList &arguments);
int runSettingsCommand(const QStringList &arguments);
int runPhotoCommand(const QStringList &arguments);
int runMovieCommand(const QStringList &arguments);
int runLibraryCommand(const QStringList &arguments);
int runLayoutCommand(const QStringList &arguments);
int runReviewCommand(const QStringList &arguments);
int runPerfCommand(const QStringList &arguments);
int runShotCommand(const QStringList &arguments);

static const Command kCommands[] = {
    {"settings", "list, get, set or reset the settings tree", runSettingsCommand},
    {"screen", "print a settings screen as an outline", runScreenCommand},
    {"fill", "fill the photo library with synthetic photos, movies and Stir Shots", runFillCommand},
    {"image", "render one image generator to a PNG file", runImageCommand},
    {"photo", "write one test photo as a JPEG with date, location and pairing metadata", runPhotoCommand},
    {"movie", "make the default test movie (cached by its parameters) and print its path", runMovieCommand},
    {"layout", "print the geometries a layouts playground generator makes of N items", runLayoutCommand},
    {"review", "the Storylet fonts review: graph strings, snapshots and recordings (see review --help)", runReviewCommand},
    {"library", "inspect the photo library, import into it and verify it (see library --help)", runLibraryCommand},
    {"shot", "picture a screen, reached by row titles from the root, as a PNG", runShotCommand},
    {"perf", "list the performance tests, or run one headless and print its frame statistics", runPerfCommand},
};

const Command *commands(int *count)
{
    *count = int(std::size(kCommands));
    return kCommands;
}

const Command *findCommand(const QString &name)
{
    for (const Command &command : kCommands)
        if (name == QLatin1String(command.name))
            return &command;
    return nullptr;
}

static int report(const char *command, const QString &message, int status)
{
    QTextStream err(stderr);
    err << "vistra-tester";
    if (*command)
        err << ' ' << command;
    err << ": " << message << Qt::endl;
    return status;
}

int usageError(const char *command, const QString &message)
{
    return report(command, message, ExitUsage);
}

int failure(const char *command, const QString &message)
{
    return report(command, message, ExitFailure);
}

QString countText(qint64 count, const char *singular, const char *plural)
{
    return QStringLiteral("%1 %2").arg(count).arg(QString::fromUtf8(count == 1 ? singular : plural));
}

} // namespace app
