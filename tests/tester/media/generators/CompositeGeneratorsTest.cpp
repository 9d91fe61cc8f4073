#include "GeneratorTestSupport.h"

#include <media/VUTesterConcentricRectsImageGenerator.h>
#include <media/VUTesterLayeredImageGenerator.h>
#include <media/VUTesterOrientedImageGenerator.h>
#include <media/VUTesterRadialPatternImageGenerator.h>
#include <media/VUTesterSolidColorImageGenerator.h>

#include <gtest/gtest.h>

#include <thread>

using graphics::Color;

namespace {

std::shared_ptr<VUTesterSolidColorImageGenerator> solid(const Color &color, QSizeF size = QSizeF(40, 30))
{
    auto generator = std::make_shared<VUTesterSolidColorImageGenerator>();
    generator->setImageSize(size);
    generator->setColor(color);
    return generator;
}

// Every pixel tells its position: a mistake in any turn or mirror shows.
std::shared_ptr<VUTesterConcentricRectsImageGenerator> asymmetricContent(QSizeF size)
{
    auto generator = std::make_shared<VUTesterConcentricRectsImageGenerator>();
    generator->setImageSize(size);
    generator->setRectsColor(Color::red());
    return generator;
}

} // namespace

TEST(LayeredGenerator, EmptyListIsTransparentAndOneLayerIsRedrawn)
{
    auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
    layered->setImageSize(QSizeF(20, 10));
    graphics::ImagePtr image = layered->generatedImage();
    ASSERT_EQ(image->pixels().size(), QSize(20, 10));
    EXPECT_EQ(rgbaAt(image, 0, 0), "0,0,0,0");
    EXPECT_EQ(rgbaAt(image, 19, 9), "0,0,0,0");

    auto content = asymmetricContent(QSizeF(7, 5));
    layered->setImageGenerators({content});
    EXPECT_EQ(layered->imageSize(), QSizeF(7, 5));
    EXPECT_FALSE(layered->image());
    image = layered->generatedImage();
    EXPECT_EQ(image->pixels(), content->generatedImage()->pixels());
    // An equal list keeps the cache.
    layered->setImageGenerators({content});
    EXPECT_EQ(layered->image(), image);
}

TEST(LayeredGenerator, StacksLayersFirstAtTheBottomAndResizesChildren)
{
    auto bottom = solid(Color::red(), QSizeF(40, 30));
    auto top = std::make_shared<VUTesterSolidColorImageGenerator>();
    top->setColor(Color::blue());
    top->setBorderColor(Color::clear());
    top->setBorderSize(QSizeF(10, 10));
    auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
    layered->setImageGenerators({bottom, top});
    const graphics::ImagePtr image = layered->generatedImage();
    EXPECT_EQ(top->imageSize(), QSizeF(40, 30));
    EXPECT_EQ(rgbaAt(image, 0, 0), "255,0,0,255");    // through the clear frame
    EXPECT_EQ(rgbaAt(image, 20, 15), "0,0,255,255"); // the top layer's middle
}

TEST(LayeredGenerator, ManyConcurrentStacksNeverCrashOrLoseALayer)
{
    // Composites wait on children that run on their own queues; far more generators than cores.
    constexpr int kStacks = 24;
    std::vector<std::shared_ptr<VUTesterOrientedImageGenerator>> stacks;
    for (int i = 0; i < kStacks; ++i) {
        auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
        layered->setImageGenerators({solid(Color::red(), QSizeF(64, 48)), asymmetricContent(QSizeF(64, 48)),
                                     std::make_shared<VUTesterRadialPatternImageGenerator>()});
        auto inner = std::make_shared<VUTesterOrientedImageGenerator>();
        inner->setImageGenerator(layered);
        inner->setImageOrientation(i % 8);
        auto outer = std::make_shared<VUTesterOrientedImageGenerator>();
        outer->setImageGenerator(inner);
        outer->setImageOrientation((i + 3) % 8);
        stacks.push_back(outer);
    }
    std::vector<graphics::ImagePtr> images(kStacks);
    dispatch::Group group;
    for (int i = 0; i < kStacks; ++i)
        group.async(*dispatch::Queue::global(), [&, i] { images[size_t(i)] = stacks[size_t(i)]->generatedImage(); });
    ASSERT_TRUE(group.waitFor(std::chrono::seconds(60))) << "composite generators deadlocked";
    for (int i = 0; i < kStacks; ++i) {
        ASSERT_TRUE(images[size_t(i)]) << i;
        EXPECT_EQ(images[size_t(i)]->size(), QSizeF(64, 48)) << i;
        // Every layer is opaque: no pixel may stay transparent.
        const QImage upright = images[size_t(i)]->uprightPixels();
        EXPECT_EQ(qAlpha(upright.pixel(0, 0)), 255) << i;
        EXPECT_EQ(qAlpha(upright.pixel(63, 47)), 255) << i;
    }
}

TEST(OrientedGenerator, EachOrientationRoundTripsToTheSourcePicture)
{
    auto content = asymmetricContent(QSizeF(400, 300));
    const QImage picture = content->generatedImage()->pixels();
    for (int o = 0; o < graphics::kImageOrientationCount; ++o) {
        auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
        oriented->setImageGenerator(content);
        oriented->setImageOrientation(o);
        const graphics::ImagePtr image = oriented->generatedImage();
        ASSERT_TRUE(image) << o;
        EXPECT_EQ(int(image->orientation()), o);
        const int exif = graphics::exifOrientation(image->orientation());
        EXPECT_EQ(image->pixels().size(), exif >= 5 ? QSize(300, 400) : QSize(400, 300)) << o;
        EXPECT_EQ(image->size(), QSizeF(400, 300)) << o;
        EXPECT_EQ(image->uprightPixels(), picture) << "orientation " << o;
        if (o != 0) {
            EXPECT_NE(image->pixels(), picture) << "orientation " << o; // ignoring the tag shows it turned
        }
    }
}

TEST(OrientedGenerator, TaggedSourcesAreDrawnUprightBeforeTurning)
{
    // The inner generator's image carries a tag, so the outer one paints through its transform.
    auto content = asymmetricContent(QSizeF(30, 20));
    const QImage picture = content->generatedImage()->pixels();
    auto inner = std::make_shared<VUTesterOrientedImageGenerator>();
    inner->setImageGenerator(content);
    inner->setImageOrientation(int(graphics::ImageOrientation::LeftMirrored));
    for (int o = 1; o < graphics::kImageOrientationCount; ++o) {
        auto outer = std::make_shared<VUTesterOrientedImageGenerator>();
        outer->setImageGenerator(inner);
        outer->setImageOrientation(o);
        EXPECT_EQ(outer->generatedImage()->uprightPixels(), picture) << "orientation " << o;
    }
}

TEST(OrientedGenerator, FollowsItsSourceAndSize)
{
    auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
    EXPECT_FALSE(oriented->generatedImage());
    auto content = solid(Color::green(), QSizeF(12, 8));
    oriented->setImageGenerator(content);
    EXPECT_EQ(oriented->imageSize(), QSizeF(12, 8));
    oriented->setImageOrientation(int(graphics::ImageOrientation::Right));
    const graphics::ImagePtr image = oriented->generatedImage();
    EXPECT_EQ(image->pixels().size(), QSize(8, 12));
    EXPECT_EQ(oriented->generatedImage(), image);
    oriented->setImageSize(QSizeF(6, 4));
    EXPECT_EQ(oriented->generatedImage()->pixels().size(), QSize(4, 6));
    EXPECT_EQ(content->imageSize(), QSizeF(6, 4));

    // A fractional size is painted under the turn: the canvas rounds up, the tag still holds.
    oriented->setImageSize(QSizeF(6.5, 4));
    const graphics::ImagePtr painted = oriented->generatedImage();
    EXPECT_EQ(painted->pixels().size(), QSize(4, 7));
    EXPECT_EQ(painted->orientation(), graphics::ImageOrientation::Right);
    EXPECT_EQ(rgbaAt(painted->uprightPixels(), 2, 2), "0,255,0,255");
}
