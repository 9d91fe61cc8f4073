// The browsing session over a real small library: sections by day or one, references found again
// in a newer snapshot, a snapshot taken after each change, and images, movies and Stir Shots from
// the media provider, answered after the request returns and never once cancelled.

#include "EventLoop.h"
#include "TestMedia.h"

#include <browsing/VULibraryAssetsDataSource.h>
#include <browsing/VULibraryBrowsingSession.h>
#include <browsing/VULibraryDataSourceManager.h>
#include <browsing/VULibraryDisplayAsset.h>
#include <browsing/VULibraryMediaProvider.h>

#include <photos/VHAssetChangeRequest.h>
#include <photos/VHAssetCollection.h>
#include <photos/VHImageManager.h>
#include <photos/VHPhotoLibrary.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace photos::testing;
using Sectioning = VULibraryAssetsDataSource::Sectioning;

namespace {

const QString kPairing = QStringLiteral("5D3A0C1E-2B4F-4E61-8A7D-9C0B1E2F3A4B");

// Two days: three photos on the first (the middle one a favourite), then a photo, a video and a
// Stir Shot two days later. Added newest first, so order comes from the dates alone.
class LibraryBrowsingTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        s_dir = new QTemporaryDir;
        s_library = VHPhotoLibrary::create(s_dir->filePath(QStringLiteral("Library")));
        const QDateTime second(QDate(2021, 7, 3), QTime(10, 0));
        const QString pairedPhoto = file(QStringLiteral("pair.jpg")), pairedMovie = file(QStringLiteral("pair.mov"));
        ASSERT_TRUE(writePhoto(pairedPhoto, {QSize(60, 40), second.addSecs(120), {}, kPairing}));
        ASSERT_TRUE(writeMovie(pairedMovie, {QSize(60, 40), second.addSecs(120), {}, kPairing}));
        const QString video = file(QStringLiteral("clip.mov"));
        ASSERT_TRUE(writeMovie(video, {QSize(64, 48), second.addSecs(60), {}, {}}));
        add([&] {
            auto *pair = VHAssetCreationRequest::creationRequestForAsset();
            pair->addResourceWithType(VHAssetResourceType::Photo, pairedPhoto);
            pair->addResourceWithType(VHAssetResourceType::PairedVideo, pairedMovie);
            VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Video, video);
        });
        addPhoto(second, false);
        for (int hour : {15, 12, 9})
            addPhoto(QDateTime(QDate(2021, 7, 1), QTime(hour, 0)), hour == 12);
    }
    static void TearDownTestSuite()
    {
        s_library.reset();
        delete s_dir;
    }

    static QString file(const QString &name) { return s_dir->filePath(name); }
    static void add(const std::function<void()> &changes)
    {
        VHError error;
        ASSERT_TRUE(s_library->performChangesAndWait(changes, &error)) << error.debugDescription().toStdString();
    }
    static void addPhoto(const QDateTime &date, bool favorite)
    {
        const QString path = file(QStringLiteral("p%1.jpg").arg(s_made++));
        ASSERT_TRUE(writePhoto(path, {QSize(80, 60), date, {}, {}}));
        add([&] {
            auto *request = VHAssetCreationRequest::creationRequestForAsset();
            request->addResourceWithType(VHAssetResourceType::Photo, path);
            request->setFavorite(favorite);
        });
    }
    static std::shared_ptr<const VULibraryDisplayAsset> assetAt(const VUAssetsDataSource &source, qint64 item, qint64 section)
    {
        const VUAssetReferencePtr reference = source.assetReferenceAtIndexPath(ui::IndexPath::forItem(item, section));
        return reference ? std::dynamic_pointer_cast<const VULibraryDisplayAsset>(reference->asset()) : nullptr;
    }

    static QTemporaryDir *s_dir;
    static std::shared_ptr<VHPhotoLibrary> s_library;
    static int s_made;
};

QTemporaryDir *LibraryBrowsingTest::s_dir = nullptr;
std::shared_ptr<VHPhotoLibrary> LibraryBrowsingTest::s_library;
int LibraryBrowsingTest::s_made = 0;

TEST_F(LibraryBrowsingTest, DaySectionsAreTheLibrarysDaysOldestFirst)
{
    const VULibraryAssetsDataSource source(s_library, Sectioning::ByDay);
    ASSERT_EQ(source.numberOfSections(), 2);
    EXPECT_EQ(source.numberOfItemsInSection(0), 3);
    EXPECT_EQ(source.numberOfItemsInSection(1), 3);
    EXPECT_EQ(source.numberOfItemsInSection(2), 0);
    EXPECT_EQ(source.assetReferenceAtIndexPath(ui::IndexPath::forItem(3, 0)), nullptr);

    VHFetchOptions options;
    options.setPhotoLibrary(s_library);
    options.setSortDescriptors({{QStringLiteral("startDate"), true}});
    const auto days = VHAssetCollection::fetchAssetCollectionsWithType(VHAssetCollectionType::Highlight, VHAssetCollectionSubtypeHighlightDays, options);
    ASSERT_EQ(days.count(), 2);
    for (qint64 section = 0; section < 2; ++section) {
        const VUAssetReferencePtr first = source.assetReferenceAtIndexPath(ui::IndexPath::forItem(0, section));
        ASSERT_NE(first, nullptr);
        EXPECT_EQ(first->assetCollection()->localizedTitle(), days.objectAtIndex(section).localizedTitle());
        EXPECT_EQ(first->assetCollection()->startDate(), days.objectAtIndex(section).startDate());
        EXPECT_EQ(first->indexPath(), ui::IndexPath::forItem(0, section));
        EXPECT_EQ(first->dataSourceIdentifier(), source.identifier());
    }
    // By capture time within a day; what each asset is comes from the library.
    EXPECT_EQ(assetAt(source, 0, 0)->localCreationDate().time(), QTime(9, 0));
    EXPECT_TRUE(assetAt(source, 1, 0)->isFavorite());
    EXPECT_FALSE(assetAt(source, 2, 0)->isFavorite());
    EXPECT_EQ(assetAt(source, 1, 1)->mediaType(), quint64(VHAssetMediaType::Video));
    EXPECT_EQ(assetAt(source, 1, 1)->uniformTypeIdentifier(), QStringLiteral("video/quicktime"));
    const auto stirShot = assetAt(source, 2, 1);
    EXPECT_TRUE(stirShot->isStirShot());
    EXPECT_TRUE(stirShot->photoLumoStillDisplayTime().isValid());
    EXPECT_EQ(stirShot->uniformTypeIdentifier(), QStringLiteral("image/jpeg"));
    EXPECT_EQ(stirShot->originalFilesize(), quint64(QFileInfo(stirShot->originalPath()).size()));
    EXPECT_GT(stirShot->originalFilesize(), 0u);
    EXPECT_EQ(stirShot->pixelWidth(), 60u);
}

TEST_F(LibraryBrowsingTest, OneSectionHoldsEveryAssetBetweenTheFirstAndLastDates)
{
    const VULibraryAssetsDataSource source(s_library, Sectioning::OneSection);
    ASSERT_EQ(source.numberOfSections(), 1);
    ASSERT_EQ(source.numberOfItemsInSection(0), 6);
    const VUAssetReferencePtr first = source.assetReferenceAtIndexPath(ui::IndexPath::forItem(0, 0));
    EXPECT_EQ(first->assetCollection()->startDate(), assetAt(source, 0, 0)->creationDate());
    EXPECT_EQ(first->assetCollection()->endDate(), assetAt(source, 5, 0)->creationDate());
    EXPECT_TRUE(first->assetCollection()->localizedTitle().isEmpty());

    // The same asset in the other sectioning, found by what it is rather than where it stood.
    const VULibraryAssetsDataSource byDay(s_library, Sectioning::ByDay);
    const VUAssetReferencePtr fifth = source.assetReferenceAtIndexPath(ui::IndexPath::forItem(4, 0));
    EXPECT_EQ(byDay.indexPathForAssetReference(fifth.get()), ui::IndexPath::forItem(1, 1));
    EXPECT_EQ(source.indexPathForAssetReference(fifth.get()), ui::IndexPath::forItem(4, 0));
    EXPECT_EQ(source.indexPathForAssetReference(nullptr), std::nullopt);
    EXPECT_TRUE(assetAt(byDay, 1, 1)->isEqual(fifth->asset().get()));
}

TEST_F(LibraryBrowsingTest, NoLibraryGivesNoSections)
{
    QTemporaryDir dir;
    const QString blocked = dir.filePath(QStringLiteral("file"));
    QFile(blocked).open(QIODevice::WriteOnly);
    const VULibraryAssetsDataSource source(VHPhotoLibrary::create(blocked + QStringLiteral("/Library")), Sectioning::ByDay);
    EXPECT_EQ(source.numberOfSections(), 0);
    EXPECT_EQ(source.assetReferenceAtIndexPath(ui::IndexPath::forItem(0, 0)), nullptr);
}

// A change to the library replaces the snapshot; a reference from the old one is found again,
// one place further on, since an earlier photo came in before it.
TEST_F(LibraryBrowsingTest, ManagerTakesANewSnapshotAfterEachChange)
{
    QTemporaryDir dir;
    auto library = VHPhotoLibrary::create(dir.filePath(QStringLiteral("Library")));
    const QString late = dir.filePath(QStringLiteral("late.jpg")), early = dir.filePath(QStringLiteral("early.jpg"));
    ASSERT_TRUE(writePhoto(late, {QSize(40, 30), QDateTime(QDate(2022, 1, 1), QTime(12, 0)), {}, {}}));
    ASSERT_TRUE(writePhoto(early, {QSize(40, 30), QDateTime(QDate(2022, 1, 1), QTime(8, 0)), {}, {}}));
    VHError error;
    ASSERT_TRUE(library->performChangesAndWait([&] { VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, late); }, &error));

    VULibraryDataSourceManager manager(library, Sectioning::OneSection);
    const VUAssetsDataSourcePtr before = manager.assetsDataSource();
    ASSERT_EQ(before->numberOfItemsInSection(0), 1);
    const VUAssetReferencePtr reference = before->assetReferenceAtIndexPath(ui::IndexPath::forItem(0, 0));
    int changes = 0;
    QObject::connect(&manager, &VUAssetsDataSourceManager::assetsDataSourceChanged, [&] { ++changes; });
    ASSERT_TRUE(library->performChangesAndWait([&] { VHAssetCreationRequest::creationRequestForAsset()->addResourceWithType(VHAssetResourceType::Photo, early); }, &error));
    ASSERT_TRUE(spinUntil([&] { return changes > 0; }));
    const VUAssetsDataSourcePtr after = manager.assetsDataSource();
    EXPECT_NE(after->identifier(), before->identifier());
    EXPECT_EQ(after->numberOfItemsInSection(0), 2);
    EXPECT_EQ(after->indexPathForAssetReference(reference.get()), ui::IndexPath::forItem(1, 0));
    EXPECT_EQ(before->numberOfItemsInSection(0), 1) << "a snapshot never changes";
}

TEST_F(LibraryBrowsingTest, ProviderAnswersImagesAtTheSizeAskedForAfterReturningAndNeverOnceCancelled)
{
    VHImageManager imageManager;
    VULibraryMediaProvider provider(&imageManager);
    const VULibraryAssetsDataSource source(s_library, Sectioning::ByDay);
    const auto photo = assetAt(source, 0, 0);

    graphics::ImagePtr image;
    QVariantMap info;
    int answers = 0;
    const VUMediaRequestID id = provider.requestImageForAsset(*photo, QSizeF(40, 40), VUImageContentMode::AspectFit, {},
                                                              [&](const graphics::ImagePtr &result, const QVariantMap &resultInfo) {
                                                                  image = result;
                                                                  info = resultInfo;
                                                                  ++answers;
                                                              });
    EXPECT_NE(id, VUInvalidMediaRequestID);
    EXPECT_EQ(answers, 0) << "answered later, on the main thread";
    EXPECT_EQ(provider.pendingRequestCount(), 1);
    ASSERT_TRUE(spinUntil([&] { return answers > 0; }));
    ASSERT_NE(image, nullptr);
    EXPECT_LE(image->size().width(), 40);
    EXPECT_LE(image->size().height(), 40);
    EXPECT_FALSE(info.contains(VUMediaErrorKey));
    EXPECT_EQ(provider.pendingRequestCount(), 0);

    // Cancelled at once, even one the cache could answer, and one answered from files.
    answers = 0;
    provider.cancelImageRequest(provider.requestImageForAsset(*photo, QSizeF(40, 40), VUImageContentMode::AspectFit, {},
                                                              [&](const graphics::ImagePtr &, const QVariantMap &) { ++answers; }));
    provider.cancelImageRequest(provider.requestImageForAsset(*assetAt(source, 1, 0), QSizeF(20, 20), VUImageContentMode::AspectFill, {},
                                                              [&](const graphics::ImagePtr &, const QVariantMap &) { ++answers; }));
    provider.cancelImageRequest(provider.requestPlayerItemForVideo(*assetAt(source, 1, 1), {}, [&](const auto &, const QVariantMap &) { ++answers; }));
    EXPECT_EQ(provider.pendingRequestCount(), 0);
    spinUntil([] { return false; }, 300);
    EXPECT_EQ(answers, 0);
}

TEST_F(LibraryBrowsingTest, ProviderHandsOverMoviesAndStirShotsAndRefusesOtherAssets)
{
    VHImageManager imageManager;
    VULibraryMediaProvider provider(&imageManager);
    const VULibraryAssetsDataSource source(s_library, Sectioning::ByDay);

    std::shared_ptr<const VUPlayerItem> item;
    provider.requestPlayerItemForVideo(*assetAt(source, 1, 1), {}, [&](const auto &result, const QVariantMap &) { item = result; });
    std::shared_ptr<const VUStirShot> stirShot;
    provider.requestStirShotForAsset(*assetAt(source, 2, 1), QSizeF(30, 30), VUImageContentMode::AspectFit, {},
                                     [&](const auto &result, const QVariantMap &) { stirShot = result; });
    QVariantMap refusal;
    bool refused = false;
    provider.requestStirShotForAsset(*assetAt(source, 0, 1), QSizeF(30, 30), VUImageContentMode::AspectFit, {},
                                     [&](const auto &result, const QVariantMap &info) {
                                         refused = result == nullptr;
                                         refusal = info;
                                     });
    ASSERT_TRUE(spinUntil([&] { return item && stirShot && refused; }));
    EXPECT_TRUE(QFileInfo(item->moviePath).isFile());
    EXPECT_TRUE(item->moviePath.endsWith(QStringLiteral(".mov")));
    ASSERT_NE(stirShot->still, nullptr);
    EXPECT_LE(stirShot->still->size().width(), 30);
    EXPECT_TRUE(QFileInfo(stirShot->moviePath).isFile());
    EXPECT_NE(stirShot->moviePath, item->moviePath);
    EXPECT_EQ(stirShot->stillDisplayTime, assetAt(source, 2, 1)->photoLumoStillDisplayTime());
    EXPECT_TRUE(refusal.contains(VUMediaErrorKey));
}

} // namespace
