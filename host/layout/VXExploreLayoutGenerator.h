#pragma once
// A mosaic on a grid of square building blocks, `numberOfColumns` across the width. Each item takes
// a span of whole blocks and fills it (its content is cropped to the span):
//   - a panorama (wider than 2.5 : 1) spans a full row, one block tall; the key item two;
//   - a vertical panorama (taller than 1 : 2.5) one column and two blocks; a heavier one three;
//     the key item two columns and max(4, columns) blocks;
//   - any other item one block; a heavier one 2 x 2; the key item K x K, K = max(3, columns - 1)
//     but at most the number of columns.
// An item is heavier when its weight is at least half a unit above the mean weight of all items.
//
// Items are placed in index order, each at the first block after the previous item's first block
// (row by row, left to right) where its whole span is free. So holes stay only where a span does
// not fit the rest of its row.
//
// Promises, for any input: no two frames overlap; every frame lies within the width; the first
// blocks of the items follow their order, row by row; the key item has the largest area; the
// content is as tall as the rows used. Frames lie on the block grid, so the grid of
// buildingBlockSize() with the metrics' spacing outlines every item.

#include "VXLayoutGenerator.h"

class VXExploreLayoutGenerator : public VXLayoutGenerator {
public:
    static constexpr int kDefaultNumberOfColumns = 4;

    // `numberOfColumns` is kept within 3 to 12, where the key item's span is the largest.
    explicit VXExploreLayoutGenerator(const VXLayoutMetrics &metrics, int numberOfColumns = kDefaultNumberOfColumns);

    int numberOfColumns() const { return m_columns; }
    QSizeF buildingBlockSize() const { return m_buildingBlockSize; }

    struct Span {
        int columns;
        int rows;
        friend bool operator==(const Span &, const Span &) = default;
    };
    // The span of an item of `aspectRatio`, by its role.
    Span spanForItem(double aspectRatio, bool isKeyItem, bool isHeavier) const;

protected:
    void layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const override;

private:
    int m_columns;
    double m_spacing;
    QSizeF m_buildingBlockSize;
};
