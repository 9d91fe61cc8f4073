#include "VXLatticerLayoutGenerator.h"

#include <algorithm>
#include <cmath>

namespace {

// The key item's block, in cells along each side.
constexpr int kKeyBlockSide = 2;

// The largest rectangle of `aspectRatio` inside `box`, centred in it.
QRectF aspectFitted(double aspectRatio, const QRectF &box)
{
    QSizeF fitted(box.width(), box.width() / aspectRatio);
    if (fitted.height() > box.height())
        fitted = QSizeF(box.height() * aspectRatio, box.height());
    return QRectF(box.center().x() - fitted.width() * 0.5, box.center().y() - fitted.height() * 0.5, fitted.width(), fitted.height());
}

} // namespace

VXLatticerLayoutGenerator::VXLatticerLayoutGenerator(const VXLayoutMetrics &metrics) : VXLayoutGenerator(metrics) {}

int VXLatticerLayoutGenerator::numberOfColumnsForItemCount(qint64 itemCount, bool hasKeyItem)
{
    // A key item among others takes four cells instead of one.
    const qint64 cells = itemCount + (hasKeyItem && itemCount > 1 ? kKeyBlockSide * kKeyBlockSide - 1 : 0);
    if (cells <= 1)
        return 1;
    auto columns = qint64(std::ceil(std::sqrt(double(cells))));
    // The square root of a large count may round either way.
    while (columns * columns < cells)
        ++columns;
    while ((columns - 1) * (columns - 1) >= cells)
        --columns;
    return int(columns);
}

void VXLatticerLayoutGenerator::layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const
{
    const auto count = qint64(items.size());
    if (count == 0)
        return;
    const bool keyBlock = keyItemIndex != VXNotFound && count > 1;
    const int columns = numberOfColumnsForItemCount(count, keyItemIndex != VXNotFound);
    const double spacing = spacingForColumns(columns);
    const double cell = std::max(0.0, (width() - (columns - 1) * spacing) / columns);
    const double stride = cell + spacing;
    const auto cellRect = [&](qint64 row, qint64 column, int side) {
        return QRectF(column * stride, row * stride, side * cell + (side - 1) * spacing, side * cell + (side - 1) * spacing);
    };
    const auto inKeyBlock = [&](qint64 position) {
        return keyBlock && position / columns < kKeyBlockSide && position % columns < kKeyBlockSide;
    };

    // Item in each cell of the first and the last row, for the corners.
    qint64 position = 0;
    qint64 lastRow = 0;
    std::vector<qint64> firstRow(size_t(columns), -1), lastRowItems(size_t(columns), -1);
    const auto occupy = [&](qint64 row, qint64 column, qint64 item) {
        if (row == 0)
            firstRow[size_t(column)] = item;
        if (row > lastRow) {
            lastRow = row;
            std::fill(lastRowItems.begin(), lastRowItems.end(), -1);
        }
        if (row == lastRow)
            lastRowItems[size_t(column)] = item;
    };
    if (keyBlock) {
        const VXLayoutItem &key = items[size_t(keyItemIndex)];
        result->geometries[size_t(keyItemIndex)] = VXLayoutGeometry::withFrame(aspectFitted(key.aspectRatio(), cellRect(0, 0, kKeyBlockSide)));
        for (int row = 0; row < kKeyBlockSide; ++row)
            for (int column = 0; column < kKeyBlockSide; ++column)
                occupy(row, column, keyItemIndex);
    }
    for (qint64 i = 0; i < count; ++i) {
        if (keyBlock && i == keyItemIndex)
            continue;
        while (inKeyBlock(position))
            ++position;
        const qint64 row = position / columns, column = position % columns;
        const VXLayoutItem &item = items[size_t(i)];
        result->geometries[size_t(i)] = VXLayoutGeometry::withFrame(aspectFitted(item.aspectRatio(), cellRect(row, column, 1)));
        occupy(row, column, i);
        ++position;
    }

    const auto corner = [](qint64 item) { return item >= 0 ? quint32(item) : VXNoCornerSprite; };
    result->corners = {corner(firstRow.front()), corner(firstRow.back()), corner(lastRowItems.front()), corner(lastRowItems.back())};
    result->height = (lastRow + 1) * stride - spacing;
}
