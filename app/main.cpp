// vistra-tester: the host application that runs the tester module. Without a sub-command it opens
// the window; with one it works headless and exits.

#include "Commands.h"
#include "TesterWindow.h"
#include "dispatch/Dispatch.h"

#include <photos/PrivateFolders.h>
#include <photos/VHPhotoLibrary.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTextStream>

#include <unistd.h>

static void printHelp()
{
    QTextStream out(stdout);
    out << "usage: vistra-tester [--library PATH] [COMMAND [ARGS...]]\n\n"
           "Without a command, opens the tester's window.\n\n"
           "Global options:\n"
           "  --library PATH   use the photo library in PATH instead of the default one\n"
           "  --help           show this help\n\n"
           "Commands:\n";
    int count = 0;
    const app::Command *list = app::commands(&count);
    for (int i = 0; i < count; ++i)
        out << "  " << QString::fromLatin1(list[i].name).leftJustified(16) << ' ' << list[i].synopsis << '\n';
    out << "\n'vistra-tester COMMAND --help' describes one command.\n";
}

// Qt wants a private runtime folder; shells without a desktop session (ssh, CI) have none. The
// name in the shared temporary folder is predictable, so a folder there that is not ours (or a
// link) is left as it is, and Qt then makes do without.
static void ensureRuntimeDirectory()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString path = QDir::tempPath() + QStringLiteral("/vistra-tester-runtime-%1").arg(getuid());
    QString error;
    if (photos::makePrivateFolder(path, &error))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
}

int main(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);

    QString libraryPath;
    while (!arguments.isEmpty() && arguments.first().startsWith(QLatin1String("--"))) {
        const QString option = arguments.takeFirst();
        if (option == QLatin1String("--help")) {
            printHelp();
            return app::ExitOk;
        }
        if (option == QLatin1String("--library")) {
            if (arguments.isEmpty())
                return app::usageError("", QStringLiteral("--library needs a folder"));
            libraryPath = arguments.takeFirst();
            continue;
        }
        return app::usageError("", QStringLiteral("unknown option %1 (see --help)").arg(option));
    }
    // Before any command or the window can reach the shared library.
    if (!libraryPath.isEmpty())
        VHPhotoLibrary::setSharedLibraryLocation(libraryPath);

    const app::Command *command = nullptr;
    if (!arguments.isEmpty()) {
        command = app::findCommand(arguments.first());
        if (!command)
            return app::usageError("", QStringLiteral("unknown command '%1' (see --help)").arg(arguments.first()));
        // Headless work draws text and images but shows nothing: no display is needed.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        ensureRuntimeDirectory();
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vistra-tester"));
    // What a killed run left in the temporary folder goes now rather than never.
    photos::removeTemporaryFoldersOfEndedProcesses();
    // Worker threads that drew with Qt must end before the application object does.
    const auto endWorkers = [] { dispatch::endWorkerThreads(std::chrono::seconds(10)); };
    if (command) {
        const int status = command->run(arguments.mid(1));
        endWorkers();
        return status;
    }

    TesterWindow window;
    window.show();
    const int status = application.exec();
    endWorkers();
    return status;
}
