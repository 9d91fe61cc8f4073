#include <graphics/Canvas.h>

#include <gtest/gtest.h>

using namespace graphics;

namespace {

QRgb pixelAt(const ImagePtr &image, int x, int y)
{
    return image->pixels().pixel(x, y);
}

} // namespace

TEST(Canvas, StartsTransparentAtTheRoundedUpSizeOriginTopLeft)
{
    Canvas canvas(QSizeF(10.2, 5));
    ASSERT_TRUE(canvas.isValid());
    canvas.fillRect(QRectF(0, 0, 2, 1), Color::red());
    const ImagePtr image = canvas.makeImage();
    ASSERT_TRUE(image);
    EXPECT_EQ(image->pixels().size(), QSize(11, 5));
    EXPECT_EQ(image->scale(), 1.0);
    EXPECT_EQ(pixelAt(image, 0, 0), qRgba(255, 0, 0, 255));
    EXPECT_EQ(pixelAt(image, 1, 0), qRgba(255, 0, 0, 255));
    EXPECT_EQ(pixelAt(image, 0, 1), qRgba(0, 0, 0, 0)); // y grows downward
    EXPECT_EQ(pixelAt(image, 10, 4), qRgba(0, 0, 0, 0));
}

TEST(Canvas, EmptyOrNegativeSizesGiveNoImage)
{
    Canvas empty(QSizeF(0, 100));
    empty.fillRect(QRectF(0, 0, 1, 1), Color::red());
    EXPECT_FALSE(empty.makeImage());
    Canvas negative(QSizeF(-10, 0));
    EXPECT_FALSE(negative.isValid());
    EXPECT_FALSE(negative.makeImage());
}

TEST(Canvas, DrawsImagesUprightScaledAndBlended)
{
    QImage stored(1, 2, QImage::Format_RGBA8888_Premultiplied);
    stored.setPixel(0, 0, qRgba(255, 0, 0, 255));
    stored.setPixel(0, 1, qRgba(0, 0, 255, 255));
    // Stored under "Right" (EXIF 6): upright it is 2 x 1 with blue left of red.
    const Image tagged(stored, ImageOrientation::Right);

    Canvas canvas(QSizeF(4, 2));
    canvas.drawImage(tagged, QRectF(0, 0, 4, 2));
    const ImagePtr image = canvas.makeImage();
    EXPECT_EQ(pixelAt(image, 0, 0), qRgba(0, 0, 255, 255));
    EXPECT_EQ(pixelAt(image, 0, 1), qRgba(0, 0, 255, 255));
    EXPECT_EQ(pixelAt(image, 3, 1), qRgba(255, 0, 0, 255));

    // Overlay of mid grey on white stays white; on black stays black (the overlay formula).
    Canvas overlay(QSizeF(2, 1));
    overlay.fillRect(QRectF(0, 0, 1, 1), Color::white());
    overlay.fillRect(QRectF(1, 0, 1, 1), Color::black());
    QImage grey(2, 1, QImage::Format_RGBA8888_Premultiplied);
    grey.fill(QColor(128, 128, 128));
    overlay.drawImage(Image(grey), QRectF(0, 0, 2, 1), BlendMode::Overlay);
    const ImagePtr blended = overlay.makeImage();
    EXPECT_EQ(pixelAt(blended, 0, 0), qRgba(255, 255, 255, 255));
    EXPECT_EQ(pixelAt(blended, 1, 0), qRgba(0, 0, 0, 255));
}
