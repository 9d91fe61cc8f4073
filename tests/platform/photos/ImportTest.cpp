// Imports of each kind, with the metadata the library reads from the files, and the refusals that
// must leave the library exactly as it was.

#include "PhotoLibraryFixture.h"

#include <QFile>
#include <QFileInfo>

using namespace photos::testing;

namespace {

class ImportTest : public PhotoLibraryFixture {};

const QDateTime kNoon(QDate(2024, 6, 15), QTime(12, 30, 5), Qt::LocalTime);

TEST_F(ImportTest, PhotoKeepsItsDateLocationAndSize)
{
    const QString path = photo("a.jpg", {QSize(120, 40), kNoon, std::make_pair(48.8584, 2.2945), {}});
    QString error;
    ASSERT_TRUE(import(path, {}, false, &error)) << error.toStdString();

    const auto assets = allAssets();
    ASSERT_EQ(assets.count(), 1);
    const VHAsset asset = assets.firstObject();
    EXPECT_EQ(asset.mediaType(), VHAssetMediaType::Image);
    EXPECT_EQ(asset.pixelWidth(), 120);
    EXPECT_EQ(asset.pixelHeight(), 40);
    // Three times wider than high: a panorama, and no moving pair.
    EXPECT_EQ(asset.mediaSubtypes(), quint64(VHAssetMediaSubtypePhotoPanorama));
    EXPECT_EQ(asset.creationDate(), kNoon.toUTC());
    EXPECT_EQ(asset.localCreationDate().time(), kNoon.time());
    ASSERT_TRUE(asset.location());
    EXPECT_NEAR(asset.location()->latitude, 48.8584, 1e-4);
    EXPECT_NEAR(asset.location()->longitude, 2.2945, 1e-4);
    EXPECT_FALSE(asset.isFavorite());
    EXPECT_FALSE(asset.isHidden());
    EXPECT_DOUBLE_EQ(asset.duration(), 0.0);
    // Copied: the original stays where it was, and the library holds its own identical file.
    EXPECT_TRUE(QFileInfo::exists(path));
    const QString stored = asset.resourcePath(VHAssetResourceType::Photo);
    ASSERT_FALSE(stored.isEmpty());
    EXPECT_TRUE(stored.startsWith(libraryPath()));
    QFile a(path), b(stored);
    ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
    EXPECT_EQ(a.readAll(), b.readAll());
}

TEST_F(ImportTest, VideoKeepsItsOffsetDateDurationAndPlace)
{
    const QDateTime tokyo(QDate(2023, 12, 31), QTime(23, 30, 0), Qt::OffsetFromUTC, 9 * 3600);
    const QString path = movieFile("v.mov", {QSize(64, 48), tokyo, std::make_pair(35.6586, 139.7454), {}});
    QString error;
    ASSERT_TRUE(import({}, path, true, &error)) << error.toStdString();

    const VHAsset asset = allAssets().firstObject();
    EXPECT_EQ(asset.mediaType(), VHAssetMediaType::Video);
    EXPECT_EQ(asset.pixelWidth(), 64);
    EXPECT_EQ(asset.pixelHeight(), 48);
    EXPECT_NEAR(asset.duration(), 0.5, 0.05);
    EXPECT_EQ(asset.creationDate(), tokyo.toUTC());
    // The wall clock of Tokyo, whatever this machine's zone.
    EXPECT_EQ(asset.localCreationDate().date(), QDate(2023, 12, 31));
    EXPECT_EQ(asset.localCreationDate().time(), QTime(23, 30, 0));
    ASSERT_TRUE(asset.location());
    EXPECT_NEAR(asset.location()->latitude, 35.6586, 1e-4);
    // Moved: gone from where it was, present in the library.
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_TRUE(QFileInfo::exists(asset.resourcePath(VHAssetResourceType::Video)));
}

TEST_F(ImportTest, PairedPhotoAndVideoBecomeOneMovingPhoto)
{
    const QString id = QStringLiteral("6C1F0E6A-7E0B-4C55-9E43-2F6D6E1C1B11");
    const QString still = photo("p.jpg", {QSize(64, 48), kNoon, {}, id});
    const QString video = movieFile("p.mov", {QSize(64, 48), kNoon, {}, id});
    QString error;
    ASSERT_TRUE(import(still, video, true, &error, movie::MediaTime{90000, 60000})) << error.toStdString();

    const auto assets = allAssets();
    ASSERT_EQ(assets.count(), 1);
    const VHAsset asset = assets.firstObject();
    EXPECT_EQ(asset.mediaType(), VHAssetMediaType::Image);
    EXPECT_TRUE(asset.isMovingPhoto());
    EXPECT_EQ(asset.pairingIdentifier(), id);
    EXPECT_EQ(asset.imageDisplayTime().value, 90000);
    EXPECT_EQ(asset.imageDisplayTime().timescale, 60000);
    EXPECT_GT(asset.duration(), 0.0);
    EXPECT_FALSE(QFileInfo::exists(still));
    EXPECT_FALSE(QFileInfo::exists(video));
    EXPECT_TRUE(QFileInfo::exists(asset.resourcePath(VHAssetResourceType::Photo)));
    EXPECT_TRUE(QFileInfo::exists(asset.resourcePath(VHAssetResourceType::PairedVideo)));
    EXPECT_EQ(originals().size(), 2);
}

// Every refusal: a clear error, no asset, no file in the library, the caller's files untouched.
TEST_F(ImportTest, RefusedRequestsLeaveEverythingAsItWas)
{
    const QString idA = QStringLiteral("AAAAAAAA-0000-0000-0000-000000000001");
    const QString idB = QStringLiteral("BBBBBBBB-0000-0000-0000-000000000002");
    const QString stillA = photo("a.jpg", {QSize(64, 48), kNoon, {}, idA});
    const QString plain = photo("plain.jpg", {QSize(64, 48), kNoon, {}, {}});
    const QString videoB = movieFile("b.mov", {QSize(64, 48), kNoon, {}, idB});
    const QString videoPlain = movieFile("plain.mov", {QSize(64, 48), kNoon, {}, {}});
    const QString text = inputPath("notes.jpg");
    {
        QFile file(text);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("not a picture at all");
    }
    struct Case {
        const char *name;
        QString photo, video;
        const char *expected;
    };
    const Case cases[] = {
        {"different pairs", stillA, videoB, "different pairs"},
        {"photo without identifier", plain, videoB, "photo has no pairing identifier"},
        {"video without identifier", stillA, videoPlain, "video has no pairing identifier"},
        {"text as photo", text, {}, "not a readable photo"},
        {"photo as movie", {}, stillA, "not a readable movie"},
        {"missing file", inputPath("missing.jpg"), {}, "no such file"},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name);
        QString error;
        EXPECT_FALSE(import(c.photo, c.video, true, &error));
        EXPECT_TRUE(error.contains(QLatin1String(c.expected))) << error.toStdString();
    }
    EXPECT_EQ(allAssets().count(), 0);
    EXPECT_TRUE(originals().isEmpty());
    for (const QString &path : {stillA, plain, videoB, videoPlain, text})
        EXPECT_TRUE(QFileInfo::exists(path)) << path.toStdString();
}

// One bad request spoils the whole change: the good one beside it is not imported either.
TEST_F(ImportTest, ChangeIsAllOrNothing)
{
    const QString good = photo("good.jpg", {QSize(32, 32), kNoon, {}, {}});
    VHError error;
    EXPECT_FALSE(m_library->performChangesAndWait(
        [&] {
            VHAssetResourceCreationOptions move;
            move.setShouldMoveFile(true);
            VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, good, move);
            VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo,
                                                                                   inputPath("missing.jpg"), move);
        },
        &error));
    EXPECT_TRUE(error.isError());
    EXPECT_EQ(allAssets().count(), 0);
    EXPECT_TRUE(QFileInfo::exists(good));
}

TEST_F(ImportTest, RequestWithWrongResourceKindsIsRefused)
{
    const QString still = photo("x.jpg", {QSize(32, 32), kNoon, {}, {}});
    VHError error;
    EXPECT_FALSE(m_library->performChangesAndWait(
        [&] {
            auto *request = VHAssetCreationRequest::creationRequestForAsset();
            request->addResourceWithType(VHAssetResourceType::Video, still);
            request->addResourceWithType(VHAssetResourceType::Photo, still);
        },
        &error));
    EXPECT_TRUE(error.debugDescription().contains(QLatin1String("one photo, one video")));
}

TEST_F(ImportTest, AssetsSurviveReopeningAndSortBothWays)
{
    for (int day = 1; day <= 3; ++day)
        ASSERT_TRUE(import(photo(QStringLiteral("%1.jpg").arg(day),
                                 {QSize(32, 32), QDateTime(QDate(2022, 3, day), QTime(9, 0), Qt::LocalTime), {}, {}}),
                           {}, true));
    reopen();
    VHFetchOptions options = m_library->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("creationDate"), false}});
    const auto newestFirst = VHAsset::fetchAssetsWithOptions(options);
    ASSERT_EQ(newestFirst.count(), 3);
    EXPECT_EQ(newestFirst.objectAtIndex(0).creationDate().toLocalTime().date(), QDate(2022, 3, 3));
    EXPECT_EQ(newestFirst.objectAtIndex(2).creationDate().toLocalTime().date(), QDate(2022, 3, 1));
    options.setSortDescriptors({{QStringLiteral("creationDate"), true}});
    options.setFetchLimit(2);
    const auto oldestTwo = VHAsset::fetchAssetsWithOptions(options);
    ASSERT_EQ(oldestTwo.count(), 2);
    EXPECT_EQ(oldestTwo.firstObject().creationDate().toLocalTime().date(), QDate(2022, 3, 1));
    EXPECT_EQ(VHAsset::fetchAssetsWithLocalIdentifiers({oldestTwo.lastObject().localIdentifier()}, options)
                  .firstObject()
                  .localIdentifier(),
              oldestTwo.lastObject().localIdentifier());
}

TEST_F(ImportTest, ChangeRequestOutsideAChangeEndsTheProcess)
{
    EXPECT_DEATH(VHAssetCreationRequest::creationRequestForAsset(), "outside performChanges");
}

TEST_F(ImportTest, UnknownSortKeyEndsTheProcess)
{
    VHFetchOptions options = m_library->librarySpecificFetchOptions();
    options.setSortDescriptors({{QStringLiteral("shoeSize"), true}});
    EXPECT_DEATH(VHAsset::fetchAssetsWithOptions(options), "unknown key 'shoeSize'");
}

} // namespace
