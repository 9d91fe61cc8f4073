#include "VXYearsMonthsLayoutGenerator.h"

#include <algorithm>

namespace {

constexpr double kRowsHeightPerWidth = 0.2;

struct Row {
    std::vector<qint64> items;
    double aspectRatioSum = 0;
};

} // namespace

VXYearsMonthsLayoutGenerator::VXYearsMonthsLayoutGenerator(const VXLayoutMetrics &metrics) : VXLayoutGenerator(metrics) {}

double VXYearsMonthsLayoutGenerator::maximumRowHeight() const
{
    return width() * kRowsHeightPerWidth;
}

double VXYearsMonthsLayoutGenerator::maximumKeyItemHeight() const
{
    return width();
}

void VXYearsMonthsLayoutGenerator::layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const
{
    const double w = width();
    const double spacing = spacingForColumns(2);
    double y = 0;
    bool firstRow = true;
    // Places one row at y: justified when that keeps it within `limit`, else at the limit from the
    // left edge.
    const auto placeRow = [&](const Row &row, double limit) {
        if (row.items.empty())
            return;
        const double gaps = double(row.items.size() - 1) * spacing;
        const double justified = (w - gaps) / row.aspectRatioSum;
        const bool fills = justified <= limit;
        const double height = fills ? justified : limit;
        double x = 0;
        for (size_t k = 0; k < row.items.size(); ++k) {
            const qint64 item = row.items[k];
            double itemWidth = items[size_t(item)].aspectRatio() * height;
            // The last item of a justified row ends at the edge exactly, whatever the rounding.
            if (fills && k + 1 == row.items.size())
                itemWidth = std::max(0.0, w - x);
            result->geometries[size_t(item)] = VXLayoutGeometry::withFrame(QRectF(x, y, itemWidth, height));
            x += itemWidth + spacing;
        }
        if (firstRow) {
            result->corners[VXLayoutGenerator::TopLeft] = quint32(row.items.front());
            result->corners[VXLayoutGenerator::TopRight] = fills ? quint32(row.items.back()) : VXNoCornerSprite;
            firstRow = false;
        }
        result->corners[VXLayoutGenerator::BottomLeft] = quint32(row.items.front());
        result->corners[VXLayoutGenerator::BottomRight] = fills ? quint32(row.items.back()) : VXNoCornerSprite;
        y += height + spacing;
    };

    if (keyItemIndex != VXNotFound)
        placeRow(Row{{keyItemIndex}, items[size_t(keyItemIndex)].aspectRatio()}, maximumKeyItemHeight());
    const double limit = maximumRowHeight();
    Row row;
    for (qint64 i = 0; i < qint64(items.size()); ++i) {
        if (i == keyItemIndex)
            continue;
        // Gaps must leave at least half of the width to the items.
        if (!row.items.empty() && double(row.items.size()) * spacing > w * 0.5) {
            placeRow(row, limit);
            row = Row();
        }
        row.items.push_back(i);
        row.aspectRatioSum += items[size_t(i)].aspectRatio();
        if ((w - double(row.items.size() - 1) * spacing) / row.aspectRatioSum <= limit) {
            placeRow(row, limit);
            row = Row();
        }
    }
    placeRow(row, limit);
    result->height = y > 0 ? y - spacing : 0;
}
