// vistra-tester: the host application that runs the tester module. Without a sub-command it opens
// the window; with one it works headless and exits.

#include "Commands.h"

#include <photos/VHPhotoLibrary.h>

#include <QApplication>
#include <QLabel>
#include <QTextStream>

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

    if (!arguments.isEmpty()) {
        const app::Command *command = app::findCommand(arguments.first());
        if (!command)
            return app::usageError("", QStringLiteral("unknown command '%1' (see --help)").arg(arguments.first()));
        // Headless work draws text and images but shows nothing: no display is needed.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        QApplication application(argc, argv);
        QApplication::setApplicationName(QStringLiteral("vistra-tester"));
        return command->run(arguments.mid(1));
    }

    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vistra-tester"));
    QLabel window(QStringLiteral("VistraUITester"));
    window.resize(390, 844);
    window.show();
    return application.exec();
}
