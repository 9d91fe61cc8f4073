#include "VXExploreLayoutGenerator.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kPanoramaAspectRatio = 2.5;
constexpr double kHeavierByWeight = 0.5;

// Which item covers each block, row by row; rows are added as items reach them.
class BlockGrid {
public:
    explicit BlockGrid(int columns) : m_columns(columns) {}

    qint64 rows() const { return qint64(m_cells.size()) / m_columns; }
    qint32 itemAt(qint64 row, int column) const { return row < rows() ? m_cells[size_t(row * m_columns + column)] : -1; }
    bool isFree(qint64 row, int column, VXExploreLayoutGenerator::Span span) const
    {
        if (column + span.columns > m_columns)
            return false;
        for (qint64 r = row; r < row + span.rows && r < rows(); ++r)
            for (int c = column; c < column + span.columns; ++c)
                if (itemAt(r, c) >= 0)
                    return false;
        return true;
    }
    void fill(qint64 row, int column, VXExploreLayoutGenerator::Span span, qint32 item)
    {
        if (rows() < row + span.rows)
            m_cells.resize(size_t((row + span.rows) * m_columns), -1);
        for (qint64 r = row; r < row + span.rows; ++r)
            std::fill_n(m_cells.begin() + r * m_columns + column, span.columns, item);
    }

private:
    int m_columns;
    std::vector<qint32> m_cells;
};

} // namespace

VXExploreLayoutGenerator::VXExploreLayoutGenerator(const VXLayoutMetrics &metrics, int numberOfColumns)
    : VXLayoutGenerator(metrics), m_columns(std::clamp(numberOfColumns, 3, 12))
{
    m_spacing = spacingForColumns(m_columns);
    const double block = std::max(0.0, (width() - (m_columns - 1) * m_spacing) / m_columns);
    m_buildingBlockSize = QSizeF(block, block);
}

VXExploreLayoutGenerator::Span VXExploreLayoutGenerator::spanForItem(double aspectRatio, bool isKeyItem, bool isHeavier) const
{
    if (aspectRatio > kPanoramaAspectRatio)
        return {m_columns, isKeyItem ? 2 : 1};
    if (aspectRatio < 1.0 / kPanoramaAspectRatio) {
        if (isKeyItem)
            return {2, std::max(4, m_columns)};
        return {1, isHeavier ? 3 : 2};
    }
    if (isKeyItem) {
        const int side = std::min(m_columns, std::max(3, m_columns - 1));
        return {side, side};
    }
    return isHeavier ? Span{2, 2} : Span{1, 1};
}

void VXExploreLayoutGenerator::layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const
{
    if (items.empty())
        return;
    double totalWeight = 0;
    for (const VXLayoutItem &item : items)
        if (std::isfinite(item.weight()))
            totalWeight += item.weight();
    const double heavierWeight = totalWeight / double(items.size()) + kHeavierByWeight;

    const double block = m_buildingBlockSize.width();
    const double stride = block + m_spacing;
    BlockGrid grid(m_columns);
    qint64 position = 0; // row * columns + column of the first block the next item may take
    for (size_t i = 0; i < items.size(); ++i) {
        const VXLayoutItem &item = items[i];
        const Span span = spanForItem(item.aspectRatio(), qint64(i) == keyItemIndex, item.weight() >= heavierWeight);
        while (!grid.isFree(position / m_columns, int(position % m_columns), span))
            ++position;
        const qint64 row = position / m_columns;
        const int column = int(position % m_columns);
        grid.fill(row, column, span, qint32(i));
        result->geometries[i] = VXLayoutGeometry::withFrame(
            QRectF(column * stride, row * stride, span.columns * block + (span.columns - 1) * m_spacing, span.rows * block + (span.rows - 1) * m_spacing));
        ++position;
    }

    const qint64 lastRow = grid.rows() - 1;
    const auto corner = [&](qint64 row, int column) {
        const qint32 item = grid.itemAt(row, column);
        return item >= 0 ? quint32(item) : VXNoCornerSprite;
    };
    result->corners = {corner(0, 0), corner(0, m_columns - 1), corner(lastRow, 0), corner(lastRow, m_columns - 1)};
    result->height = grid.rows() * stride - m_spacing;
}
