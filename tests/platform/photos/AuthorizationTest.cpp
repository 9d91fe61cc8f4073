// Authorization of the shared library: authorized when its folder opens for reading and writing,
// denied otherwise. The shared library is made once per process, so each case runs in a child.

#include "EventLoop.h"

#include "photos/VHPhotoLibrary.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

[[noreturn]] void exitWithStatusAt(const QString &location)
{
    VHPhotoLibrary::setSharedLibraryLocation(location);
    std::_Exit(int(VHPhotoLibrary::authorizationStatus()));
}

TEST(AuthorizationTest, AuthorizedWhenTheLibraryOpensDeniedOtherwise)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    EXPECT_EXIT(exitWithStatusAt(dir.filePath(QStringLiteral("Library"))), ::testing::ExitedWithCode(3), "");
    QFile blocker(dir.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    // The reason is logged.
    EXPECT_EXIT(exitWithStatusAt(dir.filePath(QStringLiteral("file/Library"))), ::testing::ExitedWithCode(2),
                "photo library access denied: cannot open the photo library");
}

TEST(AuthorizationTest, RequestAnswersOnTheMainThread)
{
    photos::testing::ensureApplication<QCoreApplication>();
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    VHPhotoLibrary::setSharedLibraryLocation(dir.filePath(QStringLiteral("Shared")));
    int status = -1;
    bool onMainThread = false;
    VHPhotoLibrary::requestAuthorization([&](VHAuthorizationStatus answer) {
        status = int(answer);
        onMainThread = QThread::currentThread() == QCoreApplication::instance()->thread();
    });
    photos::testing::spinUntil([&] { return status >= 0; });
    EXPECT_EQ(status, 3);
    EXPECT_TRUE(onMainThread);
    EXPECT_EQ(VHPhotoLibrary::sharedPhotoLibrary()->location(), dir.filePath(QStringLiteral("Shared")));
}

} // namespace
