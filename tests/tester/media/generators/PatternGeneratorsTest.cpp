#include "GeneratorTestSupport.h"

#include <media/VUTesterConcentricRectsImageGenerator.h>
#include <media/VUTesterRadialPatternImageGenerator.h>
#include <media/VUTesterSolidColorImageGenerator.h>
#include <media/VUTesterWatermarkImageGenerator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using graphics::Color;

TEST(ConcentricRects, FourByFourRingsAreMeasuredToTheFarEdges)
{
    auto generator = std::make_shared<VUTesterConcentricRectsImageGenerator>();
    generator->setImageSize(QSizeF(4, 4));
    generator->setRectsColor(Color::red());
    const graphics::ImagePtr image = generator->generatedImage();
    const int rings[4][4] = {{0, 0, 0, 0}, {0, 1, 1, 1}, {0, 1, 2, 1}, {0, 1, 1, 1}}; // [y][x]
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(rgbaAt(image, x, y), rings[y][x] % 2 ? "255,255,255,255" : "255,0,0,255") << x << "," << y;
    EXPECT_EQ(generator->colorIndexForPixelAtX(2, 2), 2);

    // A new colour redraws; the same colour again keeps the cache.
    generator->setRectsColor(Color::red());
    EXPECT_EQ(generator->image(), image);
    generator->setRectsColor(Color::blue());
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 0, 0), "0,0,255,255");
}

TEST(ConcentricRects, WithoutAColourTheDefaultBlackAndWhiteTableDraws)
{
    auto generator = std::make_shared<VUTesterConcentricRectsImageGenerator>();
    generator->setImageSize(QSizeF(5, 3));
    const graphics::ImagePtr image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 0, 0), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, 2, 1), "255,255,255,255");
    EXPECT_EQ(rgbaAt(image, 4, 2), "255,255,255,255");
}

TEST(SolidColor, BorderFramesTheInnerRectangle)
{
    auto generator = std::make_shared<VUTesterSolidColorImageGenerator>();
    generator->setColor(Color::blue());
    generator->setBorderColor(Color::red());
    generator->setBorderSize(QSizeF(10, 20));
    const graphics::ImagePtr image = generator->generatedImage();
    ASSERT_EQ(image->pixels().size(), QSize(400, 300));
    const QRect inner(10, 20, 380, 260);
    for (const QPoint p : {QPoint(0, 0), QPoint(9, 150), QPoint(200, 19), QPoint(390, 150), QPoint(200, 280), QPoint(399, 299)})
        EXPECT_EQ(rgbaAt(image, p.x(), p.y()), "255,0,0,255") << p.x() << "," << p.y();
    for (const QPoint p : {inner.topLeft(), inner.bottomRight(), QPoint(200, 150)})
        EXPECT_EQ(rgbaAt(image, p.x(), p.y()), "0,0,255,255") << p.x() << "," << p.y();

    generator->setBorderSize(QSizeF(0, 0));
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 0, 0), "0,0,255,255");
    generator->setBorderSize(QSizeF(10, 20));
    generator->setBorderColor(Color());
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 0, 0), "0,0,255,255");
    generator->setColor(Color());
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 5, 5), "0,0,0,255"); // the default fill
}

// A border wider than half the image (or taller than half of it) leaves no inside at all.
TEST(SolidColor, BorderWiderThanHalfTheImageIsAllBorder)
{
    auto generator = std::make_shared<VUTesterSolidColorImageGenerator>();
    generator->setColor(Color::blue());
    generator->setBorderColor(Color::red());
    for (const QSizeF border : {QSizeF(250, 10), QSizeF(10, 160), QSizeF(200, 150)}) {
        generator->setBorderSize(border);
        const graphics::ImagePtr image = generator->generatedImage();
        for (const QPoint p : {QPoint(0, 0), QPoint(200, 150), QPoint(120, 40), QPoint(399, 299)})
            EXPECT_EQ(rgbaAt(image, p.x(), p.y()), "255,0,0,255") << border.width() << "x" << border.height() << " at " << p.x() << "," << p.y();
    }
}

namespace {

// Counts the sectors of an n-way division whose middle, beyond the gradient, shows `color`.
int filledSectors(const graphics::ImagePtr &image, int64_t n)
{
    const QImage pixels = image->pixels();
    const QPointF centre(pixels.width() / 2.0, pixels.height() / 2.0);
    int filled = 0;
    for (int64_t i = 0; i < n; ++i) {
        const double angle = 2 * std::numbers::pi * (double(i) + 0.5) / double(n);
        const QPointF p = centre + QPointF(std::cos(angle), std::sin(angle)) * 140.0;
        const std::string rgba = rgbaAt(pixels, int(p.x()), int(p.y()));
        if (rgba == "255,0,0,255")
            ++filled;
        else
            EXPECT_EQ(rgba, "255,255,255,255") << "sector " << i << " of " << n;
    }
    return filled;
}

} // namespace

TEST(RadialPattern, FillsEveryOtherSectorStartingAtZero)
{
    auto generator = std::make_shared<VUTesterRadialPatternImageGenerator>();
    generator->setNumberOfSectors(8);
    graphics::ImagePtr image = generator->generatedImage();
    EXPECT_EQ(filledSectors(image, 8), 4);
    // Sector 0 starts at +x and runs toward +y (clockwise on screen): just below the right axis.
    EXPECT_EQ(rgbaAt(image, 340, 160), "255,0,0,255");
    EXPECT_EQ(rgbaAt(image, 340, 140), "255,255,255,255");

    generator->setPhase(1.0); // swaps filled and empty
    image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 340, 160), "255,255,255,255");
    EXPECT_EQ(rgbaAt(image, 340, 140), "255,0,0,255");

    generator->setPhase(0.0);
    generator->setNumberOfSectors(54);
    EXPECT_EQ(filledSectors(generator->generatedImage(), 54), 27);
    generator->setNumberOfSectors(7);
    EXPECT_EQ(filledSectors(generator->generatedImage(), 7), 4);
    generator->setNumberOfSectors(1);
    image = generator->generatedImage();
    EXPECT_EQ(filledSectors(image, 1), 1);
    EXPECT_EQ(rgbaAt(image, 0, 0), "255,0,0,255"); // the disc reaches the corners
    const QRgb centre = image->pixels().pixel(200, 150); // white at the centre
    EXPECT_EQ(qRed(centre), 255);
    EXPECT_GE(qGreen(centre), 250);
    generator->setNumberOfSectors(0);
    image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 0, 0), "255,255,255,255");
    EXPECT_EQ(rgbaAt(image, 340, 160), "255,255,255,255");
}

TEST(Watermark, CentresTextAndLeavesTheRestTransparent)
{
    auto generator = std::make_shared<VUTesterWatermarkImageGenerator>();
    generator->setImageSize(QSizeF(200, 100));
    const graphics::StyledText text(QStringLiteral("██"), {40.0, Color::black(), {}});
    generator->setWatermarkAttributedString(text);
    const QSizeF size = text.size();
    graphics::ImagePtr image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 0, 0), "0,0,0,0");
    EXPECT_EQ(rgbaAt(image, 100, 50), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, int(100 - size.width() / 2) - 2, 50), "0,0,0,0");

    generator->setWatermarkLocation(1);
    image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 5, int(size.height() / 2)), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, int(size.width()) + 3, int(size.height() / 2)), "0,0,0,0");

    // Larger than the canvas and centred: clipped evenly, ink on both edges.
    generator->setWatermarkLocation(0);
    generator->setWatermarkAttributedString(graphics::StyledText(QStringLiteral("████████"), {200.0, Color::black(), {}}));
    image = generator->generatedImage();
    EXPECT_EQ(rgbaAt(image, 0, 50), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, 199, 50), "0,0,0,255");
}
