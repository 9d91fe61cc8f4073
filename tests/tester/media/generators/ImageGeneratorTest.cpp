#include "GeneratorTestSupport.h"

#include <media/VUTesterBitmapImageGenerator.h>
#include <media/VUTesterColorComponents.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

class CountingGenerator : public VUTesterBitmapImageGenerator {
public:
    std::atomic<int> pixelCalls{0};
    int64_t colorIndexForPixelAtX(uint64_t x, uint64_t y) override
    {
        ++pixelCalls;
        return VUTesterBitmapImageGenerator::colorIndexForPixelAtX(x, y);
    }
};

} // namespace

TEST(ImageGenerator, CacheHandsOutTheSameImageUntilSomethingReallyChanges)
{
    auto generator = std::make_shared<CountingGenerator>();
    generator->setImageSize(QSizeF(4, 3));
    const graphics::ImagePtr first = generator->generatedImage();
    ASSERT_TRUE(first);
    EXPECT_EQ(generator->pixelCalls, 12);
    EXPECT_EQ(generator->generatedImage(), first);
    EXPECT_EQ(generator->image(), first);
    EXPECT_EQ(generator->pixelCalls, 12);

    generator->setImageSize(QSizeF(4, 3));
    EXPECT_EQ(generator->image(), first);

    // A fractional size with the same truncation drops the image but not the buffer geometry nor
    // its content: the new image wraps the same pixels without drawing.
    generator->setImageSize(QSizeF(4.7, 3.2));
    EXPECT_FALSE(generator->image());
    const graphics::ImagePtr second = generator->generatedImage();
    EXPECT_NE(second, first);
    EXPECT_EQ(generator->pixelWidth(), 4u);
    EXPECT_EQ(generator->pixelHeight(), 3u);
    EXPECT_EQ(generator->bytesPerRow(), 16u);
    EXPECT_EQ(second->pixels().size(), QSize(4, 3));
    EXPECT_EQ(generator->pixelCalls, 12);

    generator->setImageSize(QSizeF(5.9, 2.1));
    EXPECT_EQ(generator->generatedImage()->pixels().size(), QSize(5, 2));
    EXPECT_EQ(generator->bytesPerRow(), 20u);
    EXPECT_EQ(generator->pixelCalls, 22);
    // The first image did not change when the buffer was redrawn.
    EXPECT_EQ(rgbaAt(first, 0, 0), "0,0,0,255");
    EXPECT_EQ(rgbaAt(first, 1, 0), "255,255,255,255");
}

TEST(ImageGenerator, CheckerboardIsExactWithTheDefaultTable)
{
    auto generator = std::make_shared<VUTesterBitmapImageGenerator>();
    const graphics::ImagePtr image = generator->generatedImage();
    ASSERT_EQ(image->pixels().size(), QSize(400, 300));
    EXPECT_EQ(rgbaAt(image, 0, 0), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, 1, 0), "255,255,255,255");
    EXPECT_EQ(rgbaAt(image, 0, 1), "255,255,255,255");
    EXPECT_EQ(rgbaAt(image, 1, 1), "0,0,0,255");
    EXPECT_EQ(rgbaAt(image, 399, 299), "0,0,0,255");
}

TEST(ImageGenerator, EmptySizesDrawNothingAndGiveNoImage)
{
    auto generator = std::make_shared<CountingGenerator>();
    for (const QSizeF size : {QSizeF(0, 10), QSizeF(10, 0), QSizeF(0.9, 5)}) {
        generator->setImageSize(size);
        EXPECT_FALSE(generator->generatedImage());
    }
    EXPECT_EQ(generator->pixelCalls, 0);
}

TEST(ImageGenerator, RequestsFromManyThreadsAreServedOnTheGeneratorsQueue)
{
    auto generator = std::make_shared<CountingGenerator>();
    generator->setImageSize(QSizeF(64, 64));
    std::vector<std::thread> threads;
    std::vector<graphics::ImagePtr> images(8);
    std::atomic<int> onQueue{0};
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&, i] {
            images[size_t(i)] = generator->generatedImage();
            generator->generateImageWithCompletionHandler([&](graphics::ImagePtr) {
                if (dispatch::Queue::current() == generator->_queue().get())
                    ++onQueue;
            });
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(generator->generatedImage(), images[0]); // also waits for the handlers above
    for (const graphics::ImagePtr &image : images)
        EXPECT_EQ(image, images[0]);
    EXPECT_EQ(onQueue, 8);
    EXPECT_EQ(generator->pixelCalls, 64 * 64);
}

TEST(ImageGeneratorDeathTest, WaitingOnTheOwnQueueIsAProgrammerError)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            auto generator = std::make_shared<VUTesterBitmapImageGenerator>();
            dispatch::Semaphore done;
            generator->generateImageWithCompletionHandler([&](graphics::ImagePtr) {
                generator->generatedImage();
                done.signal();
            });
            done.wait();
        },
        "own queue");
}

TEST(ColorTable, WrapsIndicesAndTruncatesComponents)
{
    const VUTesterRGBAColorTable table(3, [](int64_t i) {
        return graphics::Color::rgb(i / 2.0, 0.999, 1.0 / 3.0, 1.0);
    });
    EXPECT_EQ(table.length(), 3);
    uint8_t entry[4];
    table.writeRGBAValues(entry, 7); // 7 mod 3 = entry 1
    EXPECT_EQ(entry[0], 127);        // 0.5 * 255 = 127.5, truncated
    EXPECT_EQ(entry[1], 254);
    EXPECT_EQ(entry[2], 85);
    EXPECT_EQ(entry[3], 255);
    table.writeRGBAValues(entry, 3);
    EXPECT_EQ(entry[0], 0);

    const VUTesterRGBAColorTable twoEntries; // black, white, and a mask for the wrap
    EXPECT_EQ(twoEntries.rgbaValue(5), twoEntries.rgbaValue(1));
    EXPECT_NE(twoEntries.rgbaValue(4), twoEntries.rgbaValue(5));
}

TEST(ColorTable, ColoursWithoutComponentsGiveZeroEntriesAndEmptyTablesWriteNothing)
{
    const VUTesterRGBAColorTable table(2, [](int64_t i) {
        return i == 0 ? graphics::Color() : graphics::Color::white();
    });
    uint8_t entry[4] = {9, 9, 9, 9};
    table.writeRGBAValues(entry, 0);
    EXPECT_EQ(entry[0] + entry[1] + entry[2] + entry[3], 0);

    const VUTesterRGBAColorTable empty(0, [](int64_t) { return graphics::Color::white(); });
    EXPECT_EQ(empty.length(), 0);
    uint8_t untouched[4] = {9, 9, 9, 9};
    empty.writeRGBAValues(untouched, 5);
    EXPECT_EQ(untouched[0], 9);
}

TEST(ColorComponents, ReadsBackRgbIntoThePointersGiven)
{
    double red = -1, alpha = -1;
    EXPECT_TRUE(vutester_getRed(graphics::Color::gray(0.25, 0.5), &red, nullptr, nullptr, &alpha));
    EXPECT_DOUBLE_EQ(red, 0.25);
    EXPECT_DOUBLE_EQ(alpha, 0.5);
    double green = -1;
    EXPECT_FALSE(vutester_getRed(graphics::Color(), &red, &green, nullptr, nullptr));
    EXPECT_DOUBLE_EQ(green, -1);
}
