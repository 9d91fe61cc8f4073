// The main of every test program: a QApplication (widget tests need one) on the offscreen
// platform, and fresh config, data and cache folders so a test never touches a user's files,
// however it is started.

#include "dispatch/Dispatch.h"

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    QTemporaryDir home;
    if (!home.isValid())
        return 1;
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home.filePath(QString::fromLatin1(variable))));
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
