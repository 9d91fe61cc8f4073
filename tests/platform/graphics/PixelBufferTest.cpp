// The pool of big pixel buffers: reuse, a bound by the work's recent peak, and memory given back
// once the buffers sit unused.

#include <graphics/PixelBuffer.h>

#include "ProcessStats.h"

#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

using namespace graphics;

namespace {

constexpr qint64 kMiB = 1 << 20;

// Images of `size`, each written all over as a generator would, so their pages are resident.
std::vector<QImage> touchedImages(QSize size, int count)
{
    std::vector<QImage> images;
    for (int i = 0; i < count; ++i) {
        images.push_back(newPixelImage(size));
        std::memset(images.back().bits(), 0x5a, size_t(images.back().sizeInBytes()));
    }
    return images;
}

} // namespace

TEST(PixelBuffer, ReleasedBigBuffersAreReusedForTheSameSize)
{
    const QSize size(1024, 512);
    const uchar *first = nullptr;
    {
        QImage image = newPixelImage(size);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.bytesPerLine(), 1024 * 4);
        EXPECT_EQ(image.format(), QImage::Format_RGBA8888_Premultiplied);
        first = image.constBits();
    }
    EXPECT_GE(retainedPixelBytes(), 1024 * 512 * 4);
    QImage again = newPixelImage(size);
    EXPECT_EQ(again.constBits(), first);
    // A buffer still in use is never handed out twice.
    QImage other = newPixelImage(size);
    EXPECT_NE(other.constBits(), first);
    EXPECT_TRUE(newPixelImage(QSize(0, 10)).isNull());
}

// Work that moves to another size does not keep the old size's buffers beside the new ones: the
// pool and the buffers in use stay within the most the work had in use at once.
TEST(PixelBuffer, KeptBuffersStayWithinTheRecentPeakWhenSizesChange)
{
    touchedImages(QSize(2560, 2048), 3); // 3 x 20 MiB in use at once, then kept
    EXPECT_GE(retainedPixelBytes(), 60 * kMiB);
    touchedImages(QSize(3840, 2048), 3); // 3 x 30 MiB: none of the kept buffers fits
    EXPECT_LE(retainedPixelBytes(), 94 * kMiB) << "buffers of the old size kept beside the new ones";
}

// After a large piece of work the kept buffers go back to the system within a couple of seconds.
TEST(PixelBuffer, IdleBuffersReturnTheirMemory)
{
    touchedImages(QSize(4000, 3000), 3); // 3 x 46 MiB
    const qint64 kept = processResidentBytes();
    ASSERT_GE(retainedPixelBytes(), 3 * 45 * kMiB);
    QElapsedTimer clock;
    clock.start();
    const auto returned = [&] { return retainedPixelBytes() == 0 && processResidentBytes() <= kept - 120 * kMiB; };
    while (!returned() && clock.elapsed() < 10000)
        QThread::msleep(50);
    EXPECT_EQ(retainedPixelBytes(), 0);
    EXPECT_LE(processResidentBytes(), kept - 120 * kMiB) << "the memory of idle buffers stayed resident";

    // And the pool works as before afterwards.
    EXPECT_EQ(touchedImages(QSize(4000, 3000), 1).front().size(), QSize(4000, 3000));
}
