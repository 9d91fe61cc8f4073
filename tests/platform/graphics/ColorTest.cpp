#include <graphics/Color.h>

#include <gtest/gtest.h>

using graphics::Color;

namespace {

void expectRgb(const Color &color, double r, double g, double b, double a = 1.0)
{
    const Color rgb = color.convertedToDeviceRGB();
    ASSERT_EQ(rgb.componentCount(), 4) << color.description().toStdString();
    EXPECT_DOUBLE_EQ(rgb.component(0), r);
    EXPECT_DOUBLE_EQ(rgb.component(1), g);
    EXPECT_DOUBLE_EQ(rgb.component(2), b);
    EXPECT_DOUBLE_EQ(rgb.component(3), a);
}

} // namespace

TEST(Color, HsbFollowsTheHexconeInEverySector)
{
    expectRgb(Color::hsb(0.0, 1, 1), 1, 0, 0);
    expectRgb(Color::hsb(1.0 / 6, 1, 1), 1, 1, 0);
    expectRgb(Color::hsb(2.0 / 6, 1, 1), 0, 1, 0);
    expectRgb(Color::hsb(3.0 / 6, 1, 1), 0, 1, 1);
    expectRgb(Color::hsb(4.0 / 6, 1, 1), 0, 0, 1);
    expectRgb(Color::hsb(5.0 / 6, 1, 1), 1, 0, 1);
    // A full turn is red again; half saturation lifts the minimum to half the brightness.
    expectRgb(Color::hsb(1.0, 1, 1), 1, 0, 0);
    expectRgb(Color::hsb(1.0 / 12, 0.5, 0.8), 0.8, 0.6, 0.4);
    expectRgb(Color::hsb(0.3, 0, 0.25, 0.5), 0.25, 0.25, 0.25, 0.5);
}

TEST(Color, NamesAndHexParseAndUnknownNamesAreInvalid)
{
    expectRgb(Color::fromName(QStringLiteral("Light Gray")), 2.0 / 3, 2.0 / 3, 2.0 / 3);
    expectRgb(Color::fromName(QStringLiteral("lightgrey")), 2.0 / 3, 2.0 / 3, 2.0 / 3);
    expectRgb(Color::fromName(QStringLiteral("#FF8000")), 1, 128.0 / 255, 0);
    expectRgb(Color::fromName(QStringLiteral("#00000080")), 0, 0, 0, 128.0 / 255);
    EXPECT_FALSE(Color::fromName(QStringLiteral("#12345")).isValid());
    EXPECT_FALSE(Color::fromName(QStringLiteral("#GG0000")).isValid());
    EXPECT_FALSE(Color::fromName(QStringLiteral("ultraviolet")).isValid());
    EXPECT_EQ(Color().componentCount(), 0);
    EXPECT_EQ(Color().convertedToDeviceRGB().componentCount(), 0);
}

TEST(Color, GrayConvertsToEqualRgbComponents)
{
    expectRgb(Color::gray(0.5, 0.25), 0.5, 0.5, 0.5, 0.25);
    EXPECT_EQ(Color::gray(0.5).componentCount(), 2);
    EXPECT_EQ(Color::gray(0.5).toQColor(), QColor::fromRgbF(0.5f, 0.5f, 0.5f, 1.0f));
}
