#include "QtPrinters.h"

#include "filler/VUTesterLibraryFillOperation.h"
#include "imageio/PhotoMetadata.h"
#include "movie/MovieMetadata.h"
#include "photos/PrivateFolders.h"
#include "photos/VHAsset.h"
#include "photos/VHPhotoLibrary.h"
#include "photos/VHSystemLibraryPathManager.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>

namespace {

using Operation = VUTesterLibraryFillOperation;

struct FillRun {
    std::vector<Operation::AssetReport> reports;
    int completions = 0;
    double progress = 0;
};

// Runs an operation to its end (or until `cancelAfter` assets were reported) with the event loop
// turning, as in the application.
FillRun fill(const VUTesterLibraryFillerSettings &settings, int cancelAfter = -1)
{
    auto operation = Operation::create(&settings);
    auto mutex = std::make_shared<std::mutex>();
    auto run = std::make_shared<FillRun>();
    auto completions = std::make_shared<std::atomic<int>>(0);
    // The operation keeps its observer: a strong reference back would keep both alive for good.
    std::weak_ptr<Operation> weak = operation;
    operation->setAssetObserver([weak, run, mutex, cancelAfter](const Operation::AssetReport &report) {
        std::lock_guard lock(*mutex);
        run->reports.push_back(report);
        if (cancelAfter > 0 && int(run->reports.size()) == cancelAfter)
            if (auto operation = weak.lock())
                operation->cancel();
    });
    operation->runWithCompletionHandler([completions] { ++*completions; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return completions->load() > 0; }, 120000));
    QTest::qWait(50); // a second completion would show here
    std::lock_guard lock(*mutex);
    FillRun result = *run;
    result.completions = completions->load();
    result.progress = operation->progress();
    return result;
}

// The photos and movies of this process on their way: in its own temporary folder, or in the
// temporary folder itself.
QStringList temporaryFiles()
{
    QStringList files;
    for (const QString &folder : {photos::processTemporaryFolder(nullptr), QDir::tempPath()})
        for (const QString &name : QDir(folder).entryList({QStringLiteral("*.jpg"), QStringLiteral("*.mov")}, QDir::Files))
            files << QDir(folder).filePath(name);
    return files;
}

struct FillFixture : ::testing::Test {
    VUTesterLibraryFillerSettings settings;
    void SetUp() override
    {
        settings.restoreDefaultValuesRecursively();
        settings.setLongSide(320);
        settings.setAspectRatio(double(4.0f / 3.0f));
        settings.setOrientation(0);
        settings.setImageOrientation(0);
    }
};

} // namespace

TEST(VUTesterLibraryFillOperation, SizesFollowOrientationAndVideosStayWithin1080)
{
    VUTesterLibraryFillerSettings settings;
    settings.restoreDefaultValuesRecursively();
    settings.setOrientation(1);
    settings.setLongSide(3200);
    settings.setAspectRatio(double(4.0f / 3.0f));
    EXPECT_EQ(Operation::create(&settings)->_assetSize(), QSizeF(2400, 3200));
    settings.setOrientation(0);
    EXPECT_EQ(Operation::create(&settings)->_assetSize(), QSizeF(3200, 2400));

    EXPECT_EQ(Operation::videoFrameSize({3200, 2400}, 0), QSizeF(1440, 1080));
    // A quarter turn: 2400 x 3200 as encoded, scaled to 810 x 1080, widened to 816, turned back.
    EXPECT_EQ(Operation::videoFrameSize({3200, 2400}, 3), QSizeF(1080, 816));
    EXPECT_EQ(Operation::videoFrameSize({1000, 571}, 0), QSizeF(1008, 571)) << "the height is never rounded";
}

TEST(VUTesterLibraryFillOperation, FiftyAssetsGetFiftyDistinctHuesThenTheCycleRepeats)
{
    std::vector<QColor> hues;
    for (int i = 0; i < 51; ++i)
        hues.push_back(Operation::_nextColor().toQColor());
    for (int i = 1; i < 50; ++i)
        EXPECT_NE(hues[i].hsvHueF(), hues[0].hsvHueF());
    EXPECT_NEAR(hues[50].hsvHueF(), hues[0].hsvHueF(), 1e-6);
}

TEST_F(FillFixture, NoAssetsCompletesAtOnceWithoutProgress)
{
    settings.setNumberOfAssetsToAdd(0);
    const FillRun run = fill(settings);
    EXPECT_EQ(run.completions, 1);
    EXPECT_TRUE(run.reports.empty());
    EXPECT_EQ(run.progress, 0.0);
}

TEST_F(FillFixture, FileBackedFillNamesFilesInOrderAndPairsStirShotsUnderOneName)
{
    settings.setFillDestination(1);
    settings.setMedia(VUTesterLibraryFillerSettings::kEnumerate);
    settings.setNumberOfAssetsToAdd(VUTesterLibraryFillerSettings::kAutomaticNumberOfAssets);
    settings.setLocation(TWLocationValue(-33.8688, 151.2093));
    const FillRun run = fill(settings);
    ASSERT_EQ(run.reports.size(), 3u);
    EXPECT_EQ(run.completions, 1);
    EXPECT_EQ(run.progress, 1.0);
    for (const auto &report : run.reports)
        ASSERT_TRUE(report.success) << report.error.toStdString();

    const QString photo = run.reports[0].files.value(0);
    const QString video = run.reports[1].files.value(0);
    ASSERT_EQ(run.reports[2].files.size(), 2);
    const QString stillPath = run.reports[2].files[0], moviePath = run.reports[2].files[1];
    EXPECT_TRUE(QFileInfo(photo).fileName().startsWith(QStringLiteral("IMG_")));
    EXPECT_EQ(QFileInfo(photo).suffix(), QStringLiteral("jpg"));
    EXPECT_EQ(QFileInfo(video).suffix(), QStringLiteral("mov"));
    EXPECT_EQ(QFileInfo(stillPath).completeBaseName(), QFileInfo(moviePath).completeBaseName()) << "a pair shares one base name";
    EXPECT_EQ(QFileInfo(photo).completeBaseName().mid(4).toInt() + 2, QFileInfo(stillPath).completeBaseName().mid(4).toInt());

    imageio::PhotoMetadata photoMetadata;
    QString error;
    ASSERT_TRUE(imageio::readPhotoMetadata(photo, &photoMetadata, &error)) << error.toStdString();
    EXPECT_EQ(photoMetadata.pixelSize, QSize(320, 240));
    ASSERT_TRUE(photoMetadata.hasLocation);
    EXPECT_NEAR(photoMetadata.latitude, -33.8688, 1e-4);
    EXPECT_TRUE(photoMetadata.pairingIdentifier.isEmpty());

    imageio::PhotoMetadata still;
    movie::MovieMetadata movie;
    ASSERT_TRUE(imageio::readPhotoMetadata(stillPath, &still, &error)) << error.toStdString();
    ASSERT_TRUE(movie::readMovieMetadata(moviePath, &movie, &error)) << error.toStdString();
    EXPECT_FALSE(still.pairingIdentifier.isEmpty());
    EXPECT_EQ(still.pairingIdentifier, movie.pairingIdentifier);
    EXPECT_EQ(movie.pixelSize, QSize(320, 240));
    EXPECT_NEAR(movie.duration, 3.0, 0.1);
    EXPECT_EQ(movie.publisher, QStringLiteral("Library Filler"));
}

TEST_F(FillFixture, LibraryFillImportsEachKindWithItsMetadataAndMovesTheFiles)
{
    settings.setFillDestination(0);
    settings.setMedia(VUTesterLibraryFillerSettings::kEnumerate);
    settings.setOrientation(1);
    settings.setNumberOfAssetsToAdd(3);
    settings.setLocation(TWLocationValue(46.5197, 6.6323));
    const qsizetype before = VHAsset::fetchAssetsWithOptions({}).count();
    const QStringList waiting = temporaryFiles();
    const FillRun run = fill(settings);
    ASSERT_EQ(run.reports.size(), 3u);
    for (const auto &report : run.reports)
        ASSERT_TRUE(report.success) << report.error.toStdString();

    const VHFetchResult<VHAsset> assets = VHAsset::fetchAssetsWithOptions({});
    ASSERT_EQ(assets.count(), before + 3);
    int photos = 0, videos = 0, moving = 0;
    for (qsizetype i = before; i < assets.count(); ++i) {
        const VHAsset asset = assets.objectAtIndex(i);
        EXPECT_EQ(asset.pixelWidth(), 240) << "portrait";
        ASSERT_TRUE(asset.location());
        EXPECT_NEAR(asset.location()->latitude, 46.5197, 1e-4);
        if (asset.isMovingPhoto())
            ++moving;
        else if (asset.mediaType() == VHAssetMediaType::Video)
            ++videos;
        else
            ++photos;
    }
    EXPECT_EQ(std::make_tuple(photos, videos, moving), std::make_tuple(1, 1, 1));
    for (qsizetype i = 0; i < 3; ++i)
        EXPECT_EQ(run.reports[size_t(i)].identifier, assets.objectAtIndex(before + i).localIdentifier());
    EXPECT_EQ(temporaryFiles(), waiting) << "moved into the library, not copied";
}

TEST_F(FillFixture, CancellingFinishesTheAssetInProgressAndStartsNoOther)
{
    settings.setFillDestination(1);
    settings.setMedia(0);
    settings.setNumberOfAssetsToAdd(40);
    const FillRun run = fill(settings, 2);
    EXPECT_EQ(run.completions, 1);
    ASSERT_GE(run.reports.size(), 2u);
    EXPECT_LT(run.reports.size(), 40u);
    EXPECT_NEAR(run.progress, double(run.reports.size()) / 40.0, 1e-9);
    for (const auto &report : run.reports) {
        EXPECT_TRUE(report.success);
        imageio::PhotoMetadata metadata;
        QString error;
        EXPECT_TRUE(imageio::readPhotoMetadata(report.files.value(0), &metadata, &error)) << "no half-written file: " << error.toStdString();
    }
}

TEST_F(FillFixture, AFailedAssetEndsTheRunAfterIt)
{
    settings.setFillDestination(1);
    settings.setMedia(0);
    settings.setNumberOfAssetsToAdd(5);
    // A plain file where the file-backed folder belongs: no asset can be moved there.
    const QString directory = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    QDir(directory).removeRecursively();
    QDir().mkpath(QFileInfo(directory).absolutePath());
    QFile blocker(directory);
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    const QStringList before = temporaryFiles();
    const FillRun run = fill(settings);
    EXPECT_EQ(run.completions, 1);
    ASSERT_EQ(run.reports.size(), 1u);
    EXPECT_FALSE(run.reports[0].success);
    EXPECT_FALSE(run.reports[0].error.isEmpty());
    EXPECT_NEAR(run.progress, 0.2, 1e-9);
    EXPECT_EQ(temporaryFiles(), before) << "the failed asset's photo is not left behind";
    QFile::remove(directory);
}

TEST_F(FillFixture, ALinkedFileBackedFolderKeepsItsPermissionsAndOnlyTheLinkIsDeleted)
{
    QTemporaryDir elsewhere;
    ASSERT_TRUE(elsewhere.isValid());
    const QFileDevice::Permissions shared = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup
                                            | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(elsewhere.path(), shared));
    QFile own(elsewhere.filePath(QStringLiteral("notes.txt")));
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.close();
    const QString directory = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    QDir(directory).removeRecursively();
    QDir().mkpath(QFileInfo(directory).absolutePath());
    ASSERT_TRUE(QFile::link(elsewhere.path(), directory));

    settings.setFillDestination(1);
    settings.setMedia(0);
    settings.setNumberOfAssetsToAdd(1);
    const FillRun run = fill(settings);
    ASSERT_EQ(run.reports.size(), 1u);
    ASSERT_TRUE(run.reports[0].success) << run.reports[0].error.toStdString();
    const QFileDevice::Permissions ownerGroupOther(0x7077);
    EXPECT_EQ(QFileInfo(elsewhere.path()).permissions() & ownerGroupOther, shared & ownerGroupOther);
    EXPECT_EQ(QDir(elsewhere.path()).entryList(QDir::Files).size(), 2);

    EXPECT_TRUE(VUTesterLibraryFillerSettings::_clearFileBacked());
    EXPECT_FALSE(QFileInfo(directory).isSymLink());
    EXPECT_TRUE(QFileInfo::exists(own.fileName()));
    EXPECT_EQ(QDir(elsewhere.path()).entryList(QDir::Files).size(), 2) << "the files the link led to stay";
}

TEST_F(FillFixture, TheScreenTracksRunningOperationsAndDeletesTheFileBackedStore)
{
    VUTesterLibraryFillerSettings *shared = VUTesterLibraryFillerSettings::sharedInstance();
    shared->copyValuesFrom(settings);
    shared->setFillDestination(1);
    shared->setMedia(0);
    shared->setNumberOfAssetsToAdd(3);
    shared->_startOperation();
    shared->_startOperation();
    EXPECT_TRUE(shared->internalCancelable());
    EXPECT_EQ(shared->numberOfRunningOperations(), 2);
    EXPECT_TRUE(shared->internalProgressTitle().startsWith(QStringLiteral("Progress: ")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shared->internalCancelable(); }, 120000));
    EXPECT_EQ(shared->numberOfRunningOperations(), 0);

    const QString directory = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    EXPECT_EQ(QDir(directory).entryList(QDir::Files).size(), 6);
    VUTesterLibraryFillerSettings::_clearFileBacked();
    EXPECT_FALSE(QFileInfo::exists(directory));
    VUTesterLibraryFillerSettings::_clearFileBacked(); // nothing there: nothing happens
}
