// The main of every benchmark program: an application on the offscreen platform (text is drawn
// with fonts, widgets paint into an offscreen backing store; nothing is shown) and private data,
// config and temporary folders, so a benchmark never touches the user's library or settings.

#include "dispatch/Dispatch.h"

#include <QDir>
#include <QFile>
#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    QTemporaryDir home;
    if (!home.isValid())
        return 1;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("TMPDIR", QFile::encodeName(home.filePath(QStringLiteral("tmp"))));
    if (!QDir().mkpath(home.filePath(QStringLiteral("tmp"))))
        return 1;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    // Worker threads that drew with Qt must end before the application object does.
    dispatch::endWorkerThreads(std::chrono::seconds(10));
    return 0;
}
