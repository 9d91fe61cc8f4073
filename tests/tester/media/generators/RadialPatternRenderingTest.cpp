// The radial pattern computes its pixels itself; these tests hold it to what QPainter draws for the
// same wedges and gradient.
//
// Tolerance, per channel of the premultiplied pixels:
// - away from edges at most 1: the painter looks its gradient table up with a distance computed in
//   single precision, so an index can round the other way (one table step is a quarter unit);
// - at edges at most 8, and few above 2: the painter's rasterizer snaps the path to 1/64 pixel
//   and keeps 8-bit coverage, while the generator takes the exact area; the one or two pixels
//   where all edges meet are sampled on a grid.

#include "GeneratorTestSupport.h"

#include <media/VUTesterRadialPatternImageGenerator.h>

#include <graphics/Canvas.h>

#include <QPainterPath>
#include <QRadialGradient>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

using graphics::Color;

namespace {

struct Pattern {
    QSizeF size;
    int64_t sectors;
    double phase;
    Color color;
    Color background;
};

// The point of the circle at `degrees`, measured as the painter's arcs measure them (y up).
QPointF pointOnCircle(QPointF centre, double radius, double degrees)
{
    const double radians = degrees * std::numbers::pi / 180.0;
    return centre + QPointF(std::cos(radians), -std::sin(radians)) * radius;
}

// The drawing as it was done before: the wedges as one path filled with a radial gradient. The
// sides are drawn as lines to the exact angles: an arc alone would end on its Bezier
// approximation, off the exact angle.
QImage paintedPattern(const Pattern &pattern)
{
    graphics::Canvas canvas(pattern.size);
    const QRectF bounds(QPointF(0, 0), pattern.size);
    if (pattern.background.isValid())
        canvas.fillRect(bounds, pattern.background);
    const QPointF centre = bounds.center();
    const double radius = std::hypot(pattern.size.width(), pattern.size.height()) * 0.5;
    const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
    QPainterPath wedges;
    const double step = 360.0 / double(pattern.sectors);
    for (int64_t i = 0; i < pattern.sectors; i += 2) {
        const double start = -step * (pattern.phase + double(i));
        wedges.moveTo(centre);
        wedges.lineTo(pointOnCircle(centre, radius, start));
        wedges.arcTo(circle, start, -step);
        wedges.lineTo(pointOnCircle(centre, radius, start - step));
        wedges.closeSubpath();
    }
    QRadialGradient gradient(centre, radius * 0.5);
    gradient.setColorAt(0.0, Qt::white);
    gradient.setColorAt(1.0, pattern.color.isValid() ? pattern.color.toQColor() : QColor(Qt::transparent));
    canvas.painter().fillPath(wedges, gradient);
    return canvas.makeImage()->pixels();
}

QImage generatedPattern(const Pattern &pattern)
{
    auto generator = std::make_shared<VUTesterRadialPatternImageGenerator>();
    generator->setImageSize(pattern.size);
    generator->setNumberOfSectors(pattern.sectors);
    generator->setPhase(pattern.phase);
    generator->setColor(pattern.color);
    generator->setBackgroundColor(pattern.background);
    return generator->generatedImage()->pixels();
}

int channelDifference(const QImage &a, const QImage &b, int x, int y)
{
    const uchar *p = a.constScanLine(y) + x * 4;
    const uchar *q = b.constScanLine(y) + x * 4;
    int most = 0;
    for (int c = 0; c < 4; ++c)
        most = std::max(most, std::abs(int(p[c]) - int(q[c])));
    return most;
}

// Farther than two pixels from every wedge side and from the centre.
bool awayFromEdges(const Pattern &pattern, int x, int y)
{
    const double dx = x + 0.5 - pattern.size.width() / 2;
    const double dy = y + 0.5 - pattern.size.height() / 2;
    const double r = std::hypot(dx, dy);
    const double step = 2 * std::numbers::pi / double(pattern.sectors);
    const double u = std::atan2(dy, dx) / step - pattern.phase;
    const double toRay = std::abs(u - std::round(u)) * step * r;
    return r > 4 && toRay > 2;
}

struct Comparison {
    int awayWorst = 0;
    int edgeWorst = 0;
    int edgePixels = 0;
    int edgeAbove2 = 0;
};

Comparison compare(const Pattern &pattern)
{
    const QImage generated = generatedPattern(pattern);
    const QImage painted = paintedPattern(pattern);
    EXPECT_EQ(generated.size(), painted.size());
    Comparison result;
    for (int y = 0; y < painted.height(); ++y)
        for (int x = 0; x < painted.width(); ++x) {
            const int difference = channelDifference(generated, painted, x, y);
            if (awayFromEdges(pattern, x, y)) {
                result.awayWorst = std::max(result.awayWorst, difference);
            } else {
                ++result.edgePixels;
                result.edgeWorst = std::max(result.edgeWorst, difference);
                result.edgeAbove2 += difference > 2;
            }
        }
    return result;
}

} // namespace

TEST(RadialPatternRendering, MatchesThePainterAtSizesSectorCountsAndPhases)
{
    const Pattern patterns[] = {
        {{400, 300}, 54, 0.0, Color::red(), Color::white()},
        {{640, 480}, 8, 0.3, Color::blue(), Color::white()},
        {{333, 217}, 7, 0.5, Color::rgb(0.2, 0.7, 0.4), Color::black()}, // odd: the last wedge meets the first
        {{300, 300}, 2, 0.25, Color::red(), Color()}, // a diagonal through the centre, transparent outside
        {{500, 400}, 180, 0.1, Color::rgb(0.2, 0.5, 0.9, 0.5), Color::gray(0.5, 0.5)}, // translucent over translucent
        {{400, 300}, 54, 1.0, Color(), Color::white()}, // no colour: white fading out
        {{1920, 1080}, 54, 12.37, Color::red(), Color::white()}, // a video frame, many turns on
    };
    for (const Pattern &pattern : patterns) {
        SCOPED_TRACE(testing::Message() << pattern.size.width() << "x" << pattern.size.height() << ", "
                                        << pattern.sectors << " sectors, phase " << pattern.phase);
        const Comparison result = compare(pattern);
        EXPECT_LE(result.awayWorst, 1);
        EXPECT_LE(result.edgeWorst, 8);
        EXPECT_LE(result.edgeAbove2, result.edgePixels / 50) << "of " << result.edgePixels << " edge pixels";
    }
}

TEST(RadialPatternRendering, SectorsThinnerThanAPixelStillMatch)
{
    // 1000 sectors over 300 x 200: every pixel crosses several edges, so every one is measured.
    const Pattern pattern{{300, 200}, 1000, 0.0, Color::red(), Color::white()};
    const QImage generated = generatedPattern(pattern);
    const QImage painted = paintedPattern(pattern);
    int worst = 0;
    long total = 0;
    for (int y = 0; y < painted.height(); ++y)
        for (int x = 0; x < painted.width(); ++x) {
            const int difference = channelDifference(generated, painted, x, y);
            worst = std::max(worst, difference);
            total += difference;
        }
    EXPECT_LE(worst, 8);
    EXPECT_LT(double(total) / double(painted.width() * painted.height()), 1.5);
}

TEST(RadialPatternRendering, CentreIsWhiteAndSectorsAlternateAtKnownPoints)
{
    // An odd size puts a pixel centre on the image's centre: gradient position 0, pure white.
    auto generator = std::make_shared<VUTesterRadialPatternImageGenerator>();
    generator->setImageSize(QSizeF(401, 301));
    generator->setNumberOfSectors(1);
    EXPECT_EQ(rgbaAt(generator->generatedImage(), 200, 150), "255,255,255,255");

    // Past half the radius (125.3) the colour is flat: red in filled sectors, background in empty ones.
    generator->setBackgroundColor(Color::blue());
    const auto sampleAt = [&](double angle) {
        const int x = int(std::floor(200.5 + 140 * std::cos(angle)));
        const int y = int(std::floor(150.5 + 140 * std::sin(angle)));
        return rgbaAt(generator->generatedImage(), x, y);
    };
    constexpr double kStep = 2 * std::numbers::pi / 8;
    generator->setNumberOfSectors(8);
    for (int sector = 0; sector < 8; ++sector)
        EXPECT_EQ(sampleAt((sector + 0.5) * kStep), sector % 2 ? "0,0,255,255" : "255,0,0,255") << sector;
    generator->setPhase(0.5); // half a sector on: the old middles are now edges, the old edges middles
    for (int sector = 0; sector < 8; ++sector)
        EXPECT_EQ(sampleAt((sector + 1) * kStep), sector % 2 ? "0,0,255,255" : "255,0,0,255") << sector;

    // Seven sectors: sector 6 and sector 0 are both filled, so no edge at angle 0.
    generator->setPhase(0);
    generator->setNumberOfSectors(7);
    EXPECT_EQ(sampleAt(-0.05), "255,0,0,255");
    EXPECT_EQ(sampleAt(0.0), "255,0,0,255");
    EXPECT_EQ(sampleAt(0.05), "255,0,0,255");
    EXPECT_EQ(sampleAt(1.5 * 2 * std::numbers::pi / 7), "0,0,255,255");
}

TEST(RadialPatternRendering, FractionalSizesCoverTheLastColumnAndRowInPart)
{
    const Pattern pattern{{100.5, 80.25}, 4, 0.0, Color::red(), Color::white()};
    const QImage generated = generatedPattern(pattern);
    ASSERT_EQ(generated.size(), QSize(101, 81));
    // The wedges reach past the image's area; the background covers a quarter of the last row.
    EXPECT_EQ(rgbaAt(generated, 60, 80), "255,0,0,255"); // sector 0, filled
    const uchar *empty = generated.constScanLine(80) + 40 * 4; // sector 1, empty
    EXPECT_NEAR(empty[3], 64, 1);
    const QImage painted = paintedPattern(pattern);
    for (int x = 0; x < 101; ++x)
        EXPECT_LE(channelDifference(generated, painted, x, 40), 2) << x;
}
