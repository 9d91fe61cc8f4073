// Thumbnails: sizes for each content mode, delivery on the main thread, the cache, videos, and
// cancelled requests that must never be delivered.

#include "EventLoop.h"
#include "PhotoLibraryFixture.h"

#include "photos/VHImageManager.h"

#include <QThread>

#include <map>

using namespace photos::testing;

namespace {

class ImageManagerTest : public PhotoLibraryFixture {
protected:
    static void SetUpTestSuite() { ensureApplication<QCoreApplication>(); }

    VHAsset importedPhoto(QSize size)
    {
        EXPECT_TRUE(import(photo(QStringLiteral("t%1.jpg").arg(m_counter++), {size, QDateTime::currentDateTime(), {}, {}}),
                           {}, true));
        return allAssets().lastObject();
    }

    struct Delivery {
        QSize size;
        bool cached = false;
        bool onMainThread = false;
        QString error;
    };

    VHImageRequestID request(VHImageManager &manager, const VHAsset &asset, QSize target, VHImageContentMode mode,
                             std::map<VHImageRequestID, Delivery> *deliveries)
    {
        return manager.requestImageForAsset(asset, target, mode, [deliveries](const graphics::ImagePtr &image,
                                                                              const QVariantMap &info) {
            const auto id = info.value(VHImageResultRequestIDKey).value<VHImageRequestID>();
            (*deliveries)[id] = {image ? image->pixels().size() : QSize(), info.value(VHImageResultIsCachedKey).toBool(),
                                 QThread::currentThread() == QCoreApplication::instance()->thread(),
                                 info.value(VHImageErrorKey).toString()};
        });
    }

    int m_counter = 0;
};

TEST_F(ImageManagerTest, FitsOrFillsTheTargetAndDeliversOnTheMainThread)
{
    VHImageManager manager;
    const VHAsset asset = importedPhoto(QSize(400, 300));
    std::map<VHImageRequestID, Delivery> deliveries;
    const auto fit = request(manager, asset, QSize(100, 100), VHImageContentMode::AspectFit, &deliveries);
    const auto fill = request(manager, asset, QSize(100, 100), VHImageContentMode::AspectFill, &deliveries);
    const auto huge = request(manager, asset, QSize(4000, 4000), VHImageContentMode::AspectFit, &deliveries);
    EXPECT_NE(fit, VHInvalidImageRequestID);
    EXPECT_NE(fit, fill);
    ASSERT_TRUE(spinUntil([&] { return deliveries.size() == 3; }));
    EXPECT_EQ(deliveries[fit].size, QSize(100, 75));
    EXPECT_EQ(deliveries[fill].size, QSize(133, 100));
    EXPECT_EQ(deliveries[huge].size, QSize(400, 300)); // never enlarged
    for (const auto &[id, delivery] : deliveries) {
        EXPECT_TRUE(delivery.onMainThread);
        EXPECT_FALSE(delivery.cached);
    }
    const auto again = request(manager, asset, QSize(100, 100), VHImageContentMode::AspectFit, &deliveries);
    ASSERT_TRUE(spinUntil([&] { return deliveries.count(again) == 1; }));
    EXPECT_TRUE(deliveries[again].cached);
    EXPECT_EQ(deliveries[again].size, QSize(100, 75));
}

TEST_F(ImageManagerTest, CancelledRequestsAreNeverDelivered)
{
    VHImageManager manager;
    const VHAsset asset = importedPhoto(QSize(320, 240));
    std::map<VHImageRequestID, Delivery> deliveries;
    std::vector<VHImageRequestID> kept, cancelled;
    for (int i = 0; i < 24; ++i) {
        const auto id = request(manager, asset, QSize(40 + i, 40), VHImageContentMode::AspectFit, &deliveries);
        (i % 2 ? cancelled : kept).push_back(id);
        if (i % 2)
            manager.cancelImageRequest(id);
    }
    ASSERT_TRUE(spinUntil([&] { return deliveries.size() >= kept.size(); }));
    // A cached image is handed over through the main queue: cancelling before that turn still wins.
    const auto late = request(manager, asset, QSize(40, 40), VHImageContentMode::AspectFit, &deliveries);
    manager.cancelImageRequest(late);
    cancelled.push_back(late);
    spinUntil([] { return false; }, 300);
    for (auto id : kept)
        EXPECT_EQ(deliveries.count(id), 1u) << id;
    for (auto id : cancelled)
        EXPECT_EQ(deliveries.count(id), 0u) << id;
}

TEST_F(ImageManagerTest, VideosShowTheirFirstPictureAndMissingFilesAnError)
{
    VHImageManager manager;
    ASSERT_TRUE(import({}, movieFile("v.mov", {QSize(96, 64), QDateTime::currentDateTime(), {}, {}}), true));
    const VHAsset video = allAssets().lastObject();
    const VHAsset still = importedPhoto(QSize(64, 64));
    QFile::remove(still.resourcePath(VHAssetResourceType::Photo));
    std::map<VHImageRequestID, Delivery> deliveries;
    const auto fromVideo = request(manager, video, QSize(48, 48), VHImageContentMode::AspectFit, &deliveries);
    const auto fromMissing = request(manager, still, QSize(48, 48), VHImageContentMode::AspectFit, &deliveries);
    ASSERT_TRUE(spinUntil([&] { return deliveries.size() == 2; }));
    EXPECT_EQ(deliveries[fromVideo].size, QSize(48, 32));
    EXPECT_TRUE(deliveries[fromVideo].error.isEmpty());
    EXPECT_FALSE(deliveries[fromMissing].size.isValid());
    EXPECT_FALSE(deliveries[fromMissing].error.isEmpty());
}

} // namespace
