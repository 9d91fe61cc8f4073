#include "QtPrinters.h"

#include "layouts/VUTesterAsset.h"
#include "media/VUTesterMediaProvider.h"

#include <gtest/gtest.h>

namespace {

int darkPixels(const QImage &image, const QRect &rect)
{
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            count += qGray(image.pixel(x, y)) < 60;
    return count;
}

} // namespace

TEST(TesterMediaProvider, DrawsThePlaceholderAtTheAssetsSizeBeforeReturning)
{
    VUTesterMediaProvider provider;
    const VUTesterAsset landscape(QStringLiteral("0:0")); // an odd hash: 300 x 200
    graphics::ImagePtr delivered;
    int calls = 0;
    const VUMediaRequestID id = provider.requestImageForAsset(landscape, QSizeF(40, 40), VUImageContentMode::AspectFill, {},
                                                              [&](const graphics::ImagePtr &image, const QVariantMap &info) {
                                                                  delivered = image;
                                                                  EXPECT_TRUE(info.isEmpty());
                                                                  ++calls;
                                                              });
    EXPECT_EQ(id, 0);
    ASSERT_EQ(calls, 1) << "answered on the calling thread, before the request returned";
    ASSERT_TRUE(delivered);
    const QImage pixels = delivered->pixels();
    ASSERT_EQ(pixels.size(), QSize(300, 200)) << "the target size is ignored";

    // Black under half-transparent light grey leaves a dark grey frame 5 points wide...
    const int frame = qGray(pixels.pixel(0, 0));
    EXPECT_NEAR(frame, 85, 2);
    EXPECT_NEAR(qGray(pixels.pixel(4, 100)), 85, 2);
    EXPECT_NEAR(qGray(pixels.pixel(299, 199)), 85, 2);
    EXPECT_EQ(qAlpha(pixels.pixel(0, 0)), 255);
    // ...around a light grey card.
    EXPECT_NEAR(qGray(pixels.pixel(5, 5)), 170, 2);
    EXPECT_NEAR(qGray(pixels.pixel(294, 194)), 170, 2);
    EXPECT_NEAR(qGray(pixels.pixel(20, 100)), 170, 2);
    // The item's name in black, centred: as much ink left of the middle as right of it.
    const int left = darkPixels(pixels, QRect(10, 60, 140, 80));
    const int right = darkPixels(pixels, QRect(150, 60, 140, 80));
    EXPECT_GT(left, 100);
    EXPECT_NEAR(left, right, (left + right) / 5);
    EXPECT_EQ(darkPixels(pixels, QRect(10, 10, 280, 40)), 0) << "nothing above the text";

    const VUTesterAsset portrait(QStringLiteral("12:3"));
    provider.requestImageForAsset(portrait, QSizeF(1000, 1000), VUImageContentMode::AspectFit, {},
                                  [&](const graphics::ImagePtr &image, const QVariantMap &) { delivered = image; });
    EXPECT_EQ(delivered->pixels().size(), QSize(200, 300));
}

TEST(TesterMediaProvider, PlaceholdersDifferByItem)
{
    const QImage a = VUTesterMediaProvider::_imageForItem(QStringLiteral("1:2"), QSizeF(200, 300))->pixels();
    const QImage b = VUTesterMediaProvider::_imageForItem(QStringLiteral("1:3"), QSizeF(200, 300))->pixels();
    const QImage none = VUTesterMediaProvider::_imageForItem(QVariant(), QSizeF(200, 300))->pixels();
    EXPECT_NE(a, b);
    EXPECT_EQ(a, VUTesterMediaProvider::_imageForItem(QStringLiteral("1:2"), QSizeF(200, 300))->pixels()) << "the same item, the same picture";
    EXPECT_GT(darkPixels(none, none.rect()), 100) << "no item still names itself";
}

TEST(TesterMediaProvider, SyntheticAssetsHaveNothingToPlay)
{
    VUTesterMediaProvider provider;
    const VUTesterAsset asset(QStringLiteral("0:0"));
    bool called = false;
    EXPECT_EQ(provider.requestPlayerItemForVideo(asset, {}, [&](const auto &, const QVariantMap &) { called = true; }), 0);
    EXPECT_EQ(provider.requestStirShotForAsset(asset, QSizeF(100, 100), VUImageContentMode::AspectFit, {},
                                               [&](const auto &, const QVariantMap &) { called = true; }),
              0);
    EXPECT_FALSE(called);
}
