// The main of every test program: a QApplication (widget tests need one) on the offscreen
// platform, and fresh config, data, cache and temporary folders so a test never touches a user's
// files, however it is started. The commands a test starts inherit them.

#include "dispatch/Dispatch.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QTemporaryDir home;
    if (!home.isValid())
        return 1;
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
        qputenv(variable, QFile::encodeName(home.filePath(QString::fromLatin1(variable))));
    // Temporary files (photos, movies, QTemporaryDir) land in a folder removed with `home`.
    if (!QDir().mkpath(home.filePath(QStringLiteral("TMPDIR"))))
        return 1;
    QFile::setPermissions(home.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vistra-tester-tests"));
    const int status = RUN_ALL_TESTS();
    // Worker threads that drew with Qt must end before the application object does.
    dispatch::endWorkerThreads(std::chrono::seconds(10));
    return status;
}
