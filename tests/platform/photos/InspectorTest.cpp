// The whole-library views: statistics, verification against the files, library service folders.

#include "PhotoLibraryFixture.h"

#include "photos/VHLibraryInspector.h"
#include "photos/VHSystemLibraryPathManager.h"

#include <QFile>
#include <QFileInfo>

using namespace photos::testing;

namespace {

class InspectorTest : public PhotoLibraryFixture {};

TEST_F(InspectorTest, CountsByMediaAndVerifiesCleanLibrary)
{
    const QString id = QStringLiteral("11111111-2222-3333-4444-555555555555");
    const QDateTime when = QDateTime::currentDateTime();
    ASSERT_TRUE(import(photo("a.jpg", {QSize(32, 32), when, {}, {}}), {}, true));
    ASSERT_TRUE(import(photo("b.jpg", {QSize(32, 32), when, {}, id}), movieFile("b.mov", {QSize(32, 32), when, {}, id}), true));
    ASSERT_TRUE(import({}, movieFile("c.mov", {QSize(32, 32), when, {}, {}}), true));

    VHLibraryStatistics statistics;
    VHError error;
    ASSERT_TRUE(VHLibraryInspector::statistics(*m_library, &statistics, &error));
    EXPECT_EQ(statistics.assetCount, 3);
    EXPECT_EQ(statistics.photoCount, 2);
    EXPECT_EQ(statistics.movingPhotoCount, 1);
    EXPECT_EQ(statistics.videoCount, 1);
    EXPECT_GT(statistics.bytesOnDisk, 0);

    QStringList differences;
    ASSERT_TRUE(VHLibraryInspector::verify(*m_library, &differences, &error));
    EXPECT_TRUE(differences.isEmpty()) << differences.join('\n').toStdString();
}

TEST_F(InspectorTest, VerifyNamesEveryDisagreement)
{
    const QDateTime when = QDateTime::currentDateTime();
    ASSERT_TRUE(import(photo("a.jpg", {QSize(32, 32), when, {}, {}}), {}, true));
    ASSERT_TRUE(import(photo("b.jpg", {QSize(32, 32), when, {}, {}}), {}, true));
    const auto assets = allAssets();
    ASSERT_TRUE(QFile::remove(assets.objectAtIndex(0).resourcePath(VHAssetResourceType::Photo)));
    {
        QFile grown(assets.objectAtIndex(1).resourcePath(VHAssetResourceType::Photo));
        ASSERT_TRUE(grown.open(QIODevice::Append));
        grown.write("trailing bytes");
    }
    {
        QFile stray(libraryPath() + QStringLiteral("/originals/stray.jpg"));
        ASSERT_TRUE(stray.open(QIODevice::WriteOnly));
    }
    QStringList differences;
    VHError error;
    ASSERT_TRUE(VHLibraryInspector::verify(*m_library, &differences, &error));
    ASSERT_EQ(differences.size(), 3) << differences.join('\n').toStdString();
    EXPECT_TRUE(differences.filter(QStringLiteral("missing file: originals/")).size() == 1);
    EXPECT_TRUE(differences.filter(QStringLiteral("size differs: ")).size() == 1);
    EXPECT_TRUE(differences.contains(QStringLiteral("file outside the catalogue: originals/stray.jpg")));
}

TEST_F(InspectorTest, FileBackedDirectoryIsCreatedOnlyWhenAskedAndStaysPrivate)
{
    VHSystemLibraryPathManager paths(libraryPath());
    const QString path = paths.temporaryFileBackedDebugDirectory(false);
    EXPECT_TRUE(path.startsWith(libraryPath() + QLatin1Char('/')));
    EXPECT_FALSE(QFileInfo::exists(path));
    VHError error;
    EXPECT_EQ(paths.temporaryFileBackedDebugDirectory(true, &error), path);
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_FALSE(QFileInfo(path).permissions() & (QFileDevice::ReadOther | QFileDevice::ReadGroup));
    // Files there are not the catalogue's business.
    QFile(path + QStringLiteral("/IMG_0001.jpg")).open(QIODevice::WriteOnly);
    QStringList differences;
    ASSERT_TRUE(VHLibraryInspector::verify(*m_library, &differences, &error));
    EXPECT_TRUE(differences.isEmpty());

    QFile blocker(m_dir.filePath(QStringLiteral("blocked")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    VHSystemLibraryPathManager blocked(m_dir.filePath(QStringLiteral("blocked")));
    EXPECT_TRUE(blocked.temporaryFileBackedDebugDirectory(true, &error).isEmpty());
    EXPECT_TRUE(error.isError());
}

} // namespace
