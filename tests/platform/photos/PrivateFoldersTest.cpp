// Folders at names anyone could have taken first, and what ended processes leave in them.

#include "photos/PrivateFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

constexpr QFileDevice::Permissions kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
constexpr QFileDevice::Permissions kOwnerGroupOther(0x7077);
constexpr QFileDevice::Permissions kShared =
    kOwnerOnly | QFileDevice::ReadGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;

struct PrivateFoldersTest : ::testing::Test {
    QTemporaryDir dir;
    QString path(const QString &name) const { return dir.filePath(name); }
    QFileDevice::Permissions permissions(const QString &name) const { return QFileInfo(path(name)).permissions() & kOwnerGroupOther; }
};

} // namespace

TEST_F(PrivateFoldersTest, OnlyAFolderOfThisUserIsTakenAndMadePrivate)
{
    QString error;
    EXPECT_TRUE(photos::makePrivateFolder(path("new"), &error)) << error.toStdString();
    EXPECT_EQ(permissions("new"), kOwnerOnly);

    ASSERT_TRUE(QDir().mkdir(path("mine"), kShared));
    EXPECT_TRUE(photos::makePrivateFolder(path("mine"), &error));
    EXPECT_EQ(permissions("mine"), kOwnerOnly);

    // A link someone left at the name: neither followed nor changed.
    ASSERT_TRUE(QDir().mkdir(path("target"), kShared));
    ASSERT_TRUE(QFile::link(path("target"), path("link")));
    EXPECT_FALSE(photos::makePrivateFolder(path("link"), &error));
    EXPECT_TRUE(error.contains(QLatin1String("not a folder of this user"))) << error.toStdString();
    EXPECT_EQ(permissions("target"), kShared);
    ASSERT_TRUE(QFile::link(path("nowhere"), path("dangling")));
    EXPECT_FALSE(photos::makePrivateFolder(path("dangling"), &error));
    EXPECT_FALSE(QFileInfo::exists(path("nowhere")));

    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_FALSE(photos::makePrivateFolder(path("file"), &error));

    if (::geteuid() == 0) {
        ASSERT_TRUE(QDir().mkdir(path("theirs"), kShared));
        ASSERT_EQ(::chown(QFile::encodeName(path("theirs")).constData(), 65534, 65534), 0);
        EXPECT_FALSE(photos::makePrivateFolder(path("theirs"), &error));
        EXPECT_EQ(permissions("theirs"), kShared);
    }
}

TEST_F(PrivateFoldersTest, FoldersOfEndedProcessesAreRemovedAndLiveOnesKept)
{
    QString error;
    const QString own = photos::processTemporaryFolder(&error);
    ASSERT_FALSE(own.isEmpty()) << error.toStdString();
    EXPECT_TRUE(QFileInfo(own).fileName().startsWith(QStringLiteral("%1-").arg(::getpid())));
    const QString parent = QFileInfo(own).path();
    EXPECT_EQ(QFileInfo(parent).fileName(), QStringLiteral("%1-%2").arg(QCoreApplication::applicationName()).arg(::geteuid()));

    // Our own id with another start time was an earlier process; no process id reaches 2^22 + 1.
    const QStringList ended{QStringLiteral("%1-1").arg(::getpid()), QStringLiteral("4194305-1")};
    for (const QString &name : ended) {
        ASSERT_TRUE(QDir(parent).mkpath(name + QStringLiteral("/inner")));
        QFile leftover(QDir(parent).filePath(name + QStringLiteral("/inner/IMG.jpg")));
        ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    }
    ASSERT_TRUE(QDir(parent).mkdir(QStringLiteral("not-a-process")));
    QFile mine(QDir(own).filePath(QStringLiteral("in-use.jpg")));
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly));
    mine.close();

    photos::removeTemporaryFoldersOfEndedProcesses();
    for (const QString &name : ended)
        EXPECT_FALSE(QFileInfo::exists(QDir(parent).filePath(name))) << name.toStdString();
    EXPECT_TRUE(QFileInfo::exists(QDir(parent).filePath(QStringLiteral("not-a-process"))));
    EXPECT_TRUE(QFileInfo::exists(mine.fileName()));
    QFile::remove(mine.fileName());
    QDir(parent).rmdir(QStringLiteral("not-a-process"));
}
