// The library as real homes and other processes use it: a linked data folder, several openers at
// once, an older or damaged catalogue.

#include "PhotoLibraryFixture.h"

#include "photos/Database.h"
#include "photos/LibraryFolder.h"

#include <QFile>
#include <QFileInfo>

using namespace photos::testing;
using photos::detail::LibraryFolder;

namespace {

using SharingTest = PhotoLibraryFixture;

TEST_F(SharingTest, LinksOnTheWayToTheLibraryAreFollowed)
{
    // A linked home or data folder, as many systems have.
    const QString real = m_dir.filePath(QStringLiteral("disk"));
    const QString link = m_dir.filePath(QStringLiteral("home"));
    ASSERT_TRUE(QDir().mkpath(real));
    ASSERT_TRUE(QFile::link(real, link));

    auto library = VHPhotoLibrary::create(link + QStringLiteral("/Library"));
    VHError error;
    ASSERT_TRUE(library->open(&error)) << error.debugDescription().toStdString();
    EXPECT_EQ(library->location(), real + QStringLiteral("/Library"));
    const QString source = photo("linked.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}});
    ASSERT_TRUE(library->performChangesAndWait(
        [&] { VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, source); },
        &error))
        << error.debugDescription().toStdString();

    auto again = VHPhotoLibrary::create(link + QStringLiteral("/Library"));
    EXPECT_EQ(VHAsset::fetchAssetsWithOptions(again->librarySpecificFetchOptions()).count(), 1);
    EXPECT_TRUE(QFileInfo::exists(real + QStringLiteral("/Library/Catalogue.sqlite")));
}

TEST_F(SharingTest, OpeningSucceedsWhileAnotherConnectionWrites)
{
    m_library.reset();
    photos::detail::Database other(LibraryFolder(libraryPath()).databasePath(), photos::detail::Database::ReadWrite);
    other.exec("BEGIN IMMEDIATE; INSERT INTO highlight_dirty (day) VALUES (1);");
    auto library = VHPhotoLibrary::create(libraryPath());
    VHError error;
    EXPECT_TRUE(library->open(&error)) << error.debugDescription().toStdString();
    other.exec("COMMIT");
    EXPECT_EQ(VHAsset::fetchAssetsWithOptions(library->librarySpecificFetchOptions()).count(), 0);
}

TEST_F(SharingTest, EmptiedOrLostCatalogueBesideOriginalsIsReportedDamaged)
{
    ASSERT_TRUE(import(photo("kept.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}}), QString(), true));
    m_library.reset();
    const QString catalogue = LibraryFolder(libraryPath()).databasePath();
    ASSERT_FALSE(QFileInfo::exists(catalogue + QStringLiteral("-wal")));
    ASSERT_TRUE(QFile::resize(catalogue, 0));

    const auto expectDamaged = [&] {
        auto library = VHPhotoLibrary::create(libraryPath());
        VHError error;
        EXPECT_FALSE(library->open(&error));
        EXPECT_TRUE(error.debugDescription().contains(QLatin1String("is damaged"))) << error.debugDescription().toStdString();
        EXPECT_EQ(originals().size(), 1);
    };
    expectDamaged();
    EXPECT_EQ(QFileInfo(catalogue).size(), 0);
    // Lost altogether, it is not replaced either.
    ASSERT_TRUE(QFile::remove(catalogue));
    expectDamaged();
    EXPECT_FALSE(QFileInfo::exists(catalogue));
}

TEST_F(SharingTest, CatalogueOfTheFirstVersionIsUpgradedInPlace)
{
    ASSERT_TRUE(import(photo("old.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}}), QString(), false));
    m_library.reset();
    {
        photos::detail::Database old(LibraryFolder(libraryPath()).databasePath(), photos::detail::Database::ReadWrite);
        old.exec("ALTER TABLE pending_file DROP COLUMN owner; PRAGMA user_version = 1;");
    }
    reopen();
    EXPECT_EQ(allAssets().count(), 1);
    ASSERT_TRUE(import(photo("new.jpg", {QSize(16, 16), QDateTime::currentDateTime(), {}, {}}), QString(), false));
    EXPECT_EQ(allAssets().count(), 2);
}

} // namespace
