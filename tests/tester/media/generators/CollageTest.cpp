#include "GeneratorTestSupport.h"

#include <media/VUTesterImageCollage.h>

#include <gtest/gtest.h>

namespace {

graphics::ImagePtr filled(int w, int h, QColor color)
{
    QImage pixels(w, h, QImage::Format_RGBA8888_Premultiplied);
    pixels.fill(color);
    return std::make_shared<const graphics::Image>(pixels);
}

} // namespace

TEST(ImageCollage, StripsImagesTenPointsApartTopAligned)
{
    VUTesterImageCollage collage;
    collage.setImage(filled(100, 50, Qt::red), QStringLiteral("a"));
    EXPECT_EQ(collage.collageImage()->pixels().size(), QSize(100, 50));

    collage.setImage(filled(200, 80, Qt::blue), QStringLiteral("b"));
    const graphics::ImagePtr strip = collage.collageImage();
    ASSERT_EQ(strip->pixels().size(), QSize(310, 80));
    EXPECT_EQ(rgbaAt(strip, 99, 49), "255,0,0,255");
    EXPECT_EQ(rgbaAt(strip, 99, 50), "0,0,0,0");   // below the shorter image
    EXPECT_EQ(rgbaAt(strip, 105, 10), "0,0,0,0");  // the gap
    EXPECT_EQ(rgbaAt(strip, 110, 0), "0,0,255,255");
    EXPECT_EQ(rgbaAt(strip, 309, 79), "0,0,255,255");
}

TEST(ImageCollage, ReplacingAnImageKeepsItsPlace)
{
    VUTesterImageCollage collage;
    collage.setImage(filled(10, 10, Qt::red), QStringLiteral("first"));
    collage.setImage(filled(20, 10, Qt::blue), QStringLiteral("second"));
    collage.setImage(filled(30, 10, Qt::green), QStringLiteral("first"));
    std::vector<int> widths;
    collage._enumerateImagesUsingBlock([&](const graphics::ImagePtr &image) { widths.push_back(image->pixels().width()); });
    EXPECT_EQ(widths, (std::vector<int>{30, 20}));
    const graphics::ImagePtr strip = collage.collageImage();
    EXPECT_EQ(strip->pixels().size(), QSize(60, 10));
    EXPECT_EQ(rgbaAt(strip, 0, 0), "0,255,0,255");
    EXPECT_EQ(rgbaAt(strip, 40, 0), "0,0,255,255");
}

TEST(ImageCollage, NoImagesGiveNoImage)
{
    VUTesterImageCollage collage;
    EXPECT_FALSE(collage.collageImage());
}
