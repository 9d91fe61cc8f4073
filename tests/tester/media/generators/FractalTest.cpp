#include "GeneratorTestSupport.h"

#include <media/VUTesterFractalImageGenerator.h>

#include <gtest/gtest.h>

TEST(FractalComputer, CountsRoundsBeforeEscape)
{
    VUTesterFractalComputer computer;
    EXPECT_EQ(computer.valueAtX(0, 0), 0); // no limit yet
    computer.setMaxValue(100);
    EXPECT_EQ(computer.valueAtX(0, 0), 100);
    EXPECT_EQ(computer.valueAtX(-1, 0), 100);  // a 2-cycle inside the set
    EXPECT_EQ(computer.valueAtX(3, 0), 1);     // outside the disc at once
    EXPECT_EQ(computer.valueAtX(2, 0), 2);     // |z| = 2 is not yet outside (strictly greater)
    EXPECT_EQ(computer.valueAtX(0.5, 0), 5);
}

TEST(FractalGenerator, DefaultsMapTheSetIntoTheMiddle)
{
    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    const graphics::ImagePtr image = generator->generatedImage();
    ASSERT_EQ(image->pixels().size(), QSize(400, 300));
    // (0,0) maps to about (-2.667, -2): outside, count 1, white. (200,150) is 0 + 0i: count 100, black.
    EXPECT_EQ(generator->colorIndexForPixelAtX(0, 0), 1);
    EXPECT_EQ(rgbaAt(image, 0, 0), "255,255,255,255");
    EXPECT_EQ(generator->colorIndexForPixelAtX(200, 150), 100);
    EXPECT_EQ(rgbaAt(image, 200, 150), "0,0,0,255");
    // a = 4/300: pixel 50 to the left of the centre is -2/3 on the real axis, inside the set.
    EXPECT_EQ(generator->colorIndexForPixelAtX(150, 150), 100);
    // The imaginary part grows downward with the rows: the picture is symmetric about row 150.
    EXPECT_EQ(generator->colorIndexForPixelAtX(130, 100), generator->colorIndexForPixelAtX(130, 200));
}

// The pixel function may be asked before any drawing: the mapping is still zero, so every pixel is
// the origin, which never escapes.
TEST(FractalGenerator, PixelFunctionAnswersBeforeTheFirstDrawing)
{
    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    EXPECT_EQ(generator->colorIndexForPixelAtX(0, 0), 100);
    generator->setMaxIterations(7);
    EXPECT_EQ(generator->colorIndexForPixelAtX(10, 10), 100) << "the computer follows the limit only through a drawing";
}

TEST(FractalGenerator, NewLimitReachesTheComputerThroughTheColourTable)
{
    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    generator->setImageSize(QSizeF(40, 30));
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 20, 15), "0,0,0,255");
    const VUTesterRGBAColorTablePtr firstTable = generator->colorTable();
    generator->setMaxIterations(101); // odd: the interior lands on white
    const graphics::ImagePtr image = generator->generatedImage();
    EXPECT_EQ(generator->colorIndexForPixelAtX(20, 15), 101);
    EXPECT_EQ(rgbaAt(image, 20, 15), "255,255,255,255");
    EXPECT_NE(generator->colorTable(), firstTable);
}

TEST(FractalGenerator, SchemeChangesWaitForTheNextRealInvalidation)
{
    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    generator->setImageSize(QSizeF(40, 30));
    const graphics::ImagePtr first = generator->generatedImage();
    generator->setFractalColorScheme(1);
    generator->setFractalType(3);
    EXPECT_EQ(generator->generatedImage(), first);

    generator->setCenterX(-0.5); // now the new scheme shows
    const graphics::ImagePtr ramp = generator->generatedImage();
    EXPECT_NE(ramp, first);
    EXPECT_EQ(generator->colorTable()->length(), 100);
    EXPECT_EQ(rgbaAt(ramp, 20, 15), "0,0,0,255"); // count 100 wraps to entry 0, black

    // An unknown scheme installs no table: the pixels stay as they were.
    generator->setFractalColorScheme(7);
    generator->setCenterY(0.25);
    const graphics::ImagePtr kept = generator->generatedImage();
    EXPECT_FALSE(generator->colorTable());
    EXPECT_EQ(kept->pixels(), ramp->pixels());
}

TEST(FractalGenerator, RampPaletteRisesBlackRedYellow)
{
    const VUTesterRGBAColorTablePtr table = VUTesterFractalImageGenerator::colorTableForScheme(1, 5);
    ASSERT_EQ(table->length(), 5);
    const auto entry = [&](int64_t i) {
        uint8_t rgba[4];
        table->writeRGBAValues(rgba, i);
        return std::to_string(rgba[0]) + "," + std::to_string(rgba[1]) + "," + std::to_string(rgba[2]) + "," + std::to_string(rgba[3]);
    };
    EXPECT_EQ(entry(0), "0,0,0,255");
    EXPECT_EQ(entry(1), "127,0,0,255");    // t = 0.25: half-bright red
    EXPECT_EQ(entry(2), "255,0,0,255");    // t = 0.5: full red, hue 0
    EXPECT_EQ(entry(3), "255,127,0,255");  // t = 0.75: hue 1/12, halfway to yellow
    EXPECT_EQ(entry(4), "0,0,0,255");      // the last entry is black
    EXPECT_FALSE(VUTesterFractalImageGenerator::colorTableForScheme(2, 5));

    auto generator = std::make_shared<VUTesterFractalImageGenerator>();
    generator->setImageSize(QSizeF(20, 10));
    generator->setFractalColorScheme(1);
    generator->setMaxIterations(1);
    const QImage pixels = generator->generatedImage()->pixels();
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            ASSERT_EQ(rgbaAt(pixels, x, y), "0,0,0,255") << x << "," << y;
}
