#include <graphics/Canvas.h>
#include <graphics/StyledText.h>

#include <gtest/gtest.h>

using namespace graphics;

TEST(StyledText, UsesTheBundledFontWithDigitsOfOneWidth)
{
    EXPECT_EQ(bundledFontFamily(), QStringLiteral("DejaVu Sans"));
    const TextAttributes attributes{40.0, Color::black(), {}};
    const double width = StyledText(QStringLiteral("0"), attributes).size().width();
    EXPECT_GT(width, 10.0);
    for (char digit = '1'; digit <= '9'; ++digit)
        EXPECT_DOUBLE_EQ(StyledText(QString(QLatin1Char(digit)), attributes).size().width(), width) << digit;
    EXPECT_DOUBLE_EQ(StyledText(QStringLiteral("12:34:56"), attributes).size().width(),
                     StyledText(QStringLiteral("00:00:00"), attributes).size().width());
}

TEST(StyledText, SizeGrowsWithFontSizeAndLines)
{
    const StyledText small(QStringLiteral("Label"), {20.0, Color::black(), {}});
    const StyledText large(QStringLiteral("Label"), {40.0, Color::black(), {}});
    EXPECT_NEAR(large.size().width(), 2 * small.size().width(), 0.1);
    EXPECT_NEAR(large.size().height(), 2 * small.size().height(), 0.1);
    const StyledText twoLines(QStringLiteral("Label\nLabel"), {20.0, Color::black(), {}});
    EXPECT_DOUBLE_EQ(twoLines.size().width(), small.size().width());
    EXPECT_DOUBLE_EQ(twoLines.size().height(), 2 * small.size().height());
    EXPECT_EQ(StyledText().size(), QSizeF(0, 0));
}

TEST(StyledText, DrawsInsideItsNaturalBoxOnly)
{
    StyledText text(QStringLiteral("HH"), {30.0, Color::red(), {}});
    text.append(QStringLiteral("88"), {30.0, Color::black(), Color::white()});
    const QSizeF size = text.size();
    Canvas canvas(QSizeF(200, 100));
    canvas.drawText(text, QPointF(50, 20));
    const QImage pixels = canvas.makeImage()->pixels();
    int inked = 0;
    bool sawRed = false;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 200; ++x) {
            const QRgb p = pixels.pixel(x, y);
            if (qAlpha(p) == 0)
                continue;
            ++inked;
            sawRed = sawRed || (qRed(p) > 200 && qGreen(p) < 50 && qAlpha(p) == 255);
            EXPECT_TRUE(x >= 50 && x <= 50 + size.width() + 1 && y >= 20 && y <= 20 + size.height() + 1)
                << "ink outside the box at " << x << "," << y;
        }
    EXPECT_GT(inked, 100);
    EXPECT_TRUE(sawRed);
}

namespace {

QImage drawn(const StyledText &text)
{
    const QSizeF size = text.size();
    Canvas canvas(QSizeF(std::ceil(size.width()) + 4, std::ceil(size.height()) + 4));
    canvas.drawText(text, QPointF(2, 2));
    return canvas.makeImage()->pixels();
}

} // namespace

// Text is shaped and falls back to the machine's fonts: glyphs are never looked up one by one in
// the bundled face alone.
TEST(StyledText, ShapesJoiningScriptsAndFallsBackForMissingCharacters)
{
    const TextAttributes attributes{40.0, Color::black(), {}};
    // Lam and alef join into one ligature, narrower than the two letters standing alone.
    const double joined = StyledText(QStringLiteral("\u0644\u0627"), attributes).size().width();
    const double apart = StyledText(QStringLiteral("\u0644"), attributes).size().width()
                         + StyledText(QStringLiteral("\u0627"), attributes).size().width();
    EXPECT_LT(joined, apart - 1.0);

    // The bundled face has no Han characters; two different ones must still look different
    // (without fallback both would be the same empty-glyph box).
    const QImage first = drawn(StyledText(QStringLiteral("\u7c73"), attributes));
    const QImage second = drawn(StyledText(QStringLiteral("\u5170"), attributes));
    ASSERT_FALSE(first.isNull());
    EXPECT_NE(first, second);
}
