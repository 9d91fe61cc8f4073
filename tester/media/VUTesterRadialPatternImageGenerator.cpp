#include "VUTesterRadialPatternImageGenerator.h"

#include <dispatch/Dispatch.h>
#include <graphics/PixelBuffer.h>

#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <thread>
#include <utility>
#include <vector>

// The pixels are computed row by row instead of filling a gradient path with QPainter, which runs
// at about 13 Mpixel/s. Each row splits into runs that lie wholly inside one sector, filled from a
// gradient table, and the few pixels near a wedge edge, the centre or the disc's rim, which get
// their coverage measured: the areas of the pixel's square on either side of the edges crossing
// it, or a sample grid at the centre where they meet. Colours, gradient table, coverage and
// blending follow the raster engine's integer arithmetic, so the result matches a QPainter drawing
// to within a few units at edges. The wedge sides lie at their exact angles, where a painter's
// arc would end on its Bezier approximation, up to 0.03 degrees off.

namespace {

// One premultiplied RGBA8888 pixel read as a little-endian word: alpha in the top byte.
using Pixel = uint32_t;

// Entries of the gradient table and the raster engine's lookup: index = int(t * 1023 + 0.5), padded.
constexpr int kGradientSize = 1024;
// A pixel's square reaches at most sqrt(2)/2 from its centre; beyond this an edge cannot touch it.
constexpr double kEdgeReach = 0.75;
// Inside this distance from the centre several edges may meet in one pixel.
constexpr double kCentreZone = 1.5;

// x * a / 255 on every byte, rounded as the raster engine does.
inline Pixel byteMul(Pixel x, uint32_t a)
{
    uint32_t t = (x & 0xff00ff) * a;
    t = ((t + ((t >> 8) & 0xff00ff) + 0x800080) >> 8) & 0xff00ff;
    x = ((x >> 8) & 0xff00ff) * a;
    x = (x + ((x >> 8) & 0xff00ff) + 0x800080) & 0xff00ff00;
    return x | t;
}

// Source over with a coverage of 0..255.
inline Pixel sourceOver(Pixel source, Pixel destination, uint32_t coverage)
{
    if (coverage < 255)
        source = byteMul(source, coverage);
    return source + byteMul(destination, 255 - (source >> 24));
}

Pixel pixelFromPremultiplied(QRgba64 colour)
{
    const QRgb argb = colour.toArgb32();
    return (argb & 0xff00ff00) | ((argb >> 16) & 0xff) | ((argb & 0xff) << 16);
}

Pixel premultipliedPixel(const graphics::Color &colour)
{
    return colour.isValid() ? pixelFromPremultiplied(colour.toQColor().rgba64().premultiplied()) : 0;
}

// The raster engine's two-stop table: premultiplied 16-bit channels stepped in 16.16 fixed point.
std::array<Pixel, kGradientSize> gradientTable(QRgba64 first, QRgba64 last)
{
    first = first.premultiplied();
    last = last.premultiplied();
    const std::array<uint32_t, 4> from{first.red(), first.green(), first.blue(), first.alpha()};
    const std::array<uint32_t, 4> to{last.red(), last.green(), last.blue(), last.alpha()};
    std::array<uint32_t, 4> value{};
    std::array<uint32_t, 4> delta{};
    for (int c = 0; c < 4; ++c) {
        value[c] = (from[c] << 16) + (1u << 15);
        delta[c] = uint32_t(int(std::lround((double(to[c] << 16) - double(from[c] << 16)) / (kGradientSize - 1))));
    }
    std::array<Pixel, kGradientSize> table;
    table[0] = pixelFromPremultiplied(first);
    for (int i = 1; i < kGradientSize - 1; ++i) {
        for (int c = 0; c < 4; ++c)
            value[c] += delta[c];
        table[size_t(i)] = pixelFromPremultiplied(
            qRgba64(quint16(value[0] >> 16), quint16(value[1] >> 16), quint16(value[2] >> 16), quint16(value[3] >> 16)));
    }
    table[kGradientSize - 1] = pixelFromPremultiplied(last);
    return table;
}

// Area of a unit pixel square on the positive side of a line, for the signed distance `d` of the
// pixel's centre from the line and the absolute components a, b of the line's unit normal.
double halfPlaneCoverage(double d, double a, double b)
{
    const double big = std::max(a, b);
    const double small = std::min(a, b);
    const double u = d + 0.5 * (big + small);
    if (u <= 0)
        return 0;
    if (u >= big + small)
        return 1;
    if (small < 1e-9)
        return u / big;
    if (u < small)
        return u * u / (2 * big * small);
    if (u <= big)
        return (u - 0.5 * small) / big;
    const double rest = big + small - u;
    return 1 - rest * rest / (2 * big * small);
}

class WedgeRaster {
public:
    WedgeRaster(QSizeF size, QSize pixels, int64_t sectors, double phase, const graphics::Color &colour,
                const graphics::Color &background)
        : m_width(pixels.width())
        , m_fullColumns(int(std::floor(size.width())))
        , m_fullRows(int(std::floor(size.height())))
        , m_areaWidth(size.width())
        , m_areaHeight(size.height())
        , m_cx(size.width() * 0.5)
        , m_cy(size.height() * 0.5)
        , m_radius(std::hypot(size.width(), size.height()) * 0.5)
        , m_sectors(sectors)
        , m_phase(phase)
        , m_background(premultipliedPixel(background))
    {
        const QRgba64 end = colour.isValid() ? colour.toQColor().rgba64() : QRgba64::fromRgba64(0, 0, 0, 0);
        m_gradient = gradientTable(QRgba64::fromRgba64(0xffff, 0xffff, 0xffff, 0xffff), end);
        for (int i = 0; i < kGradientSize; ++i)
            m_gradientOverBackground[size_t(i)] = sourceOver(m_gradient[size_t(i)], m_background, 255);
        const double gradientRadius = m_radius * 0.5;
        m_gradientScale = (kGradientSize - 1) / gradientRadius;
        // Past this distance the index rounds to the last entry.
        m_flatRadius = gradientRadius * (kGradientSize - 1.5) / (kGradientSize - 1) + 1.0;
        if (m_sectors >= 2) {
            m_step = 2 * std::numbers::pi / double(m_sectors);
            placeRays();
            for (int64_t k = 0; k < m_sectors; ++k)
                if (isFilled(k) != isFilled(k == 0 ? m_sectors - 1 : k - 1))
                    m_edges.push_back(k);
        }
    }

    void drawRows(uchar *bits, qsizetype bytesPerLine, int firstRow, int endRow) const
    {
        std::vector<std::pair<int, int>> special;
        for (int y = firstRow; y < endRow; ++y)
            drawRow(reinterpret_cast<Pixel *>(bits + bytesPerLine * y), y, special);
    }

private:
    struct Ray {
        double sin;
        double cos;
    };

    bool hasWedges() const { return m_sectors >= 1; }
    bool isFilled(int64_t sector) const { return sector % 2 == 0; }

    // Ray k opens sector k at the exact angle step * (phase + k); even rays start a wedge, odd
    // rays close the one before.
    void placeRays()
    {
        m_rays.reserve(size_t(m_sectors));
        for (int64_t k = 0; k < m_sectors; ++k) {
            const double angle = m_step * (m_phase + double(k));
            m_rays.push_back({std::sin(angle), std::cos(angle)});
        }
    }

    int64_t sectorOf(double dx, double dy) const
    {
        const int64_t sector = int64_t(std::floor(std::atan2(dy, dx) / m_step - m_phase)) % m_sectors;
        return sector < 0 ? sector + m_sectors : sector;
    }

    // Fraction of the pixel centred at (dx, dy) from the centre that the wedges cover, ignoring the rim.
    double wedgeCoverage(double dx, double dy, double r) const
    {
        if (m_sectors == 1)
            return 1;
        if (r < kCentreZone)
            return sampledCoverage(dx, dy, 16);
        // Away from the centre the rays crossing the pixel are nearly parallel: sector t covers the
        // area ahead of ray t less the area ahead of ray t + 1, however thin the sectors.
        const auto areaAhead = [&](int64_t ray, double *area) {
            const Ray &edge = m_rays[size_t(ray)];
            const double d = dy * edge.cos - dx * edge.sin;
            if (std::abs(d) >= kEdgeReach || dx * edge.cos + dy * edge.sin <= 0)
                return false;
            *area = halfPlaneCoverage(d, std::abs(edge.sin), std::abs(edge.cos));
            return true;
        };
        const auto next = [&](int64_t k) { return k + 1 == m_sectors ? 0 : k + 1; };
        const auto previous = [&](int64_t k) { return k == 0 ? m_sectors - 1 : k - 1; };
        constexpr int kMaxRays = 64;
        const int64_t sector = sectorOf(dx, dy);
        double opening = 1;
        const bool crossed = areaAhead(sector, &opening);
        double coverage = 0;
        int rays = 0;
        for (int64_t t = sector, ray = next(sector); ++rays < kMaxRays; t = ray, ray = next(ray)) {
            double closing = 0;
            const bool more = areaAhead(ray, &closing);
            coverage += isFilled(t) ? opening - closing : 0;
            opening = closing;
            if (!more)
                break;
        }
        if (crossed) {
            double closing = 0;
            areaAhead(sector, &closing);
            for (int64_t t = previous(sector); ++rays < kMaxRays; t = previous(t)) {
                double area = 1;
                const bool more = areaAhead(t, &area);
                coverage += isFilled(t) ? area - closing : 0;
                closing = area;
                if (!more)
                    break;
            }
        }
        // Sectors far thinner than a pixel: their mean is all that shows.
        return rays >= kMaxRays ? sampledCoverage(dx, dy, 4) : std::clamp(coverage, 0.0, 1.0);
    }

    // Where edges meet: the share of a grid of samples inside filled sectors.
    double sampledCoverage(double dx, double dy, int grid) const
    {
        int inside = 0;
        for (int j = 0; j < grid; ++j)
            for (int i = 0; i < grid; ++i)
                inside += isFilled(sectorOf(dx + (i + 0.5) / grid - 0.5, dy + (j + 0.5) / grid - 0.5));
        return double(inside) / double(grid * grid);
    }

    Pixel gradientAt(double r) const
    {
        return m_gradient[size_t(std::min(int(r * m_gradientScale + 0.5), kGradientSize - 1))];
    }

    // The general case: any pixel, measured on its own.
    Pixel pixelAt(int x, int y) const
    {
        Pixel background = m_background;
        if (x >= m_fullColumns || y >= m_fullRows) {
            // The background covers only the part of the last column or row inside the image.
            const double area = (std::min(x + 1.0, m_areaWidth) - x) * (std::min(y + 1.0, m_areaHeight) - y);
            background = byteMul(m_background, uint32_t(std::clamp(int(area * 256), 0, 255)));
        }
        if (!hasWedges())
            return background;
        const double dx = x + 0.5 - m_cx;
        const double dy = y + 0.5 - m_cy;
        const double r = std::sqrt(dx * dx + dy * dy);
        double coverage = wedgeCoverage(dx, dy, r);
        if (r > m_radius - kEdgeReach)
            coverage *= std::clamp(m_radius - r + 0.5, 0.0, 1.0);
        const int level = std::min(255, int(coverage * 256));
        return level == 0 ? background : sourceOver(gradientAt(r), background, uint32_t(level));
    }

    // Adds the pixels whose centres lie in [cx + from, cx + to], rounded outward.
    void addRange(std::vector<std::pair<int, int>> &special, double from, double to) const
    {
        const double first = std::floor(std::max(from + m_cx - 0.5, -2.0));
        const double last = std::ceil(std::min(to + m_cx - 0.5, double(m_width) + 1));
        const int begin = std::max(0, int(first));
        const int end = std::min(m_width, int(last) + 1);
        if (begin < end)
            special.emplace_back(begin, end);
    }

    // Pixels of a row that an edge, the centre or the rim may touch, as merged sorted ranges.
    void collectSpecial(std::vector<std::pair<int, int>> &special, double dy) const
    {
        constexpr double kFar = 1e9;
        special.clear();
        if (m_fullColumns < m_width)
            special.emplace_back(m_fullColumns, m_width);
        const double inner = m_radius - kEdgeReach;
        if (std::abs(dy) >= inner - 1) {
            special.emplace_back(0, m_width);
        } else {
            const double half = std::sqrt(inner * inner - dy * dy);
            addRange(special, -kFar, -half);
            addRange(special, half, kFar);
        }
        if (m_sectors >= 2) {
            if (std::abs(dy) < kCentreZone + 1)
                addRange(special, -kCentreZone - 1, kCentreZone + 1);
            for (const int64_t k : m_edges) {
                const Ray &ray = m_rays[size_t(k)];
                // Centres within kEdgeReach of the ray's line and not behind its start.
                double from = -kFar;
                double to = kFar;
                if (std::abs(ray.sin) < 1e-12) {
                    if (std::abs(dy) > kEdgeReach)
                        continue;
                } else {
                    const double a = (dy * ray.cos - kEdgeReach) / ray.sin;
                    const double b = (dy * ray.cos + kEdgeReach) / ray.sin;
                    from = std::min(a, b);
                    to = std::max(a, b);
                }
                if (ray.cos > 1e-12)
                    from = std::max(from, (-kEdgeReach - dy * ray.sin) / ray.cos);
                else if (ray.cos < -1e-12)
                    to = std::min(to, (-kEdgeReach - dy * ray.sin) / ray.cos);
                else if (dy * ray.sin < -kEdgeReach)
                    continue;
                if (from <= to)
                    addRange(special, from, to);
            }
        }
        std::sort(special.begin(), special.end());
        size_t merged = 0;
        for (const auto &range : special) {
            if (merged > 0 && range.first <= special[merged - 1].second)
                special[merged - 1].second = std::max(special[merged - 1].second, range.second);
            else
                special[merged++] = range;
        }
        special.resize(merged);
    }

    // Pixels [begin, end) of a row that lie wholly inside one sector.
    void fillRun(Pixel *row, int begin, int end, double dy) const
    {
        if (begin >= end)
            return;
        if (!hasWedges() || (m_sectors > 1 && !isFilled(sectorOf((begin + end) * 0.5 + 0.5 - m_cx, dy)))) {
            std::fill(row + begin, row + end, m_background);
            return;
        }
        const Pixel flat = m_gradientOverBackground[kGradientSize - 1];
        if (std::abs(dy) >= m_flatRadius) {
            std::fill(row + begin, row + end, flat);
            return;
        }
        const double half = std::sqrt(m_flatRadius * m_flatRadius - dy * dy);
        const int shadedBegin = std::clamp(int(std::floor(m_cx - half)), begin, end);
        const int shadedEnd = std::clamp(int(std::ceil(m_cx + half)) + 1, shadedBegin, end);
        std::fill(row + begin, row + shadedBegin, flat);
        const double dy2 = dy * dy;
        for (int x = shadedBegin; x < shadedEnd; ++x) {
            const double dx = x + 0.5 - m_cx;
            const int index = int(std::sqrt(dx * dx + dy2) * m_gradientScale + 0.5);
            row[x] = m_gradientOverBackground[size_t(std::min(index, kGradientSize - 1))];
        }
        std::fill(row + shadedEnd, row + end, flat);
    }

    void drawRow(Pixel *row, int y, std::vector<std::pair<int, int>> &special) const
    {
        if (y >= m_fullRows || !hasWedges()) {
            if (y >= m_fullRows) {
                for (int x = 0; x < m_width; ++x)
                    row[x] = pixelAt(x, y);
            } else {
                std::fill(row, row + m_fullColumns, m_background);
                for (int x = m_fullColumns; x < m_width; ++x)
                    row[x] = pixelAt(x, y);
            }
            return;
        }
        const double dy = y + 0.5 - m_cy;
        if (m_edges.size() > size_t(m_width) / 2) {
            // Sectors thinner than pixels: nothing to gain from runs.
            for (int x = 0; x < m_width; ++x)
                row[x] = pixelAt(x, y);
            return;
        }
        collectSpecial(special, dy);
        int x = 0;
        for (const auto &[begin, end] : special) {
            fillRun(row, x, begin, dy);
            for (int i = begin; i < end; ++i)
                row[i] = pixelAt(i, y);
            x = end;
        }
        fillRun(row, x, m_width, dy);
    }

    int m_width;
    int m_fullColumns;
    int m_fullRows;
    double m_areaWidth;
    double m_areaHeight;
    double m_cx;
    double m_cy;
    double m_radius;
    int64_t m_sectors;
    double m_phase;
    double m_step = 0;
    double m_gradientScale = 0;
    double m_flatRadius = 0;
    Pixel m_background;
    std::array<Pixel, kGradientSize> m_gradient{};
    std::array<Pixel, kGradientSize> m_gradientOverBackground{};
    std::vector<Ray> m_rays;
    // Rays between sectors of different fill: the only edges that show.
    std::vector<int64_t> m_edges;
};

// Below this many pixels a second thread costs more than it saves.
constexpr qsizetype kMinPixelsPerBand = 256 * 1024;

} // namespace

graphics::ImagePtr VUTesterRadialPatternImageGenerator::createImage()
{
    const QSizeF size = imageSize();
    if (!(size.width() > 0 && size.height() > 0))
        return nullptr;
    QImage pixels = graphics::newPixelImage(QSize(int(std::ceil(size.width())), int(std::ceil(size.height()))));
    if (pixels.isNull())
        return nullptr;
    const WedgeRaster raster(size, pixels.size(), m_numberOfSectors, m_phase, m_color, m_backgroundColor);
    uchar *bits = pixels.bits();
    const qsizetype bytesPerLine = pixels.bytesPerLine();
    const int rows = pixels.height();
    const qsizetype area = qsizetype(pixels.width()) * rows;
    const int bands = int(std::clamp<qsizetype>(area / kMinPixelsPerBand, 1, std::max(1u, std::thread::hardware_concurrency())));
    dispatch::Group group;
    for (int band = 1; band < bands; ++band)
        group.async(*dispatch::Queue::global(), [&, band] {
            raster.drawRows(bits, bytesPerLine, rows * band / bands, rows * (band + 1) / bands);
        });
    raster.drawRows(bits, bytesPerLine, 0, rows / bands);
    group.wait();
    return std::make_shared<const graphics::Image>(std::move(pixels));
}
