#include <graphics/Image.h>
#include <graphics/OrientedPixels.h>

#include <gtest/gtest.h>

using namespace graphics;

namespace {

// Every pixel different, with an odd size so a wrong row or column shows.
QImage numberedImage(int w, int h)
{
    QImage image(w, h, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            image.setPixel(x, y, qRgba(x, y, (x * 7 + y * 3) & 0xff, 255));
    return image;
}

} // namespace

TEST(OrientedPixels, MatchesQtsExactTransformForAllEightOrientations)
{
    const QImage source = numberedImage(131, 70); // wider than one 64-pixel tile either way
    for (int exif = 1; exif <= 8; ++exif) {
        const QImage expected = source.transformed(exifOrientationTransform(exif));
        const QImage actual = orientedPixels(source, exif);
        ASSERT_EQ(actual.size(), expected.size()) << "EXIF " << exif;
        EXPECT_EQ(actual, expected) << "EXIF " << exif;
    }
}

TEST(OrientedPixels, InverseOrientationUndoesEachOrientation)
{
    const QImage source = numberedImage(9, 5);
    for (int exif = 1; exif <= 8; ++exif) {
        const QImage stored = orientedPixels(source, inverseExifOrientation(exif));
        const Image tagged(stored, imageOrientationFromExif(exif));
        EXPECT_EQ(tagged.uprightPixels(), source) << "EXIF " << exif;
        EXPECT_EQ(tagged.size(), QSizeF(9, 5)) << "EXIF " << exif;
    }
}
