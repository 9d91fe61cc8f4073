#pragma once
// A lattice of equal square cells across the width, in as many columns as the square root of the
// number of cells needed, rounded up: 1 item takes the whole width, 2 to 4 items two columns,
// 5 to 9 three, and so on. The key item takes a block of 2 x 2 cells at the top left; the other
// items fill the remaining cells in order, row by row, left to right. Each item is aspect-fitted
// and centred in its cell (or block), so it shows whole.
//
// Promises, for any input: no two frames overlap; every frame lies within the width; the items
// other than the key item follow their order, row by row; the content is as tall as the rows
// used. With a key item, its block is twice a cell plus the spacing on both sides, so it is drawn
// larger than any other item whenever the aspect ratios lie between 1 : 4 and 4 : 1.

#include "VXLayoutGenerator.h"

class VXLatticerLayoutGenerator : public VXLayoutGenerator {
public:
    explicit VXLatticerLayoutGenerator(const VXLayoutMetrics &metrics);

    // The number of columns for `itemCount` items, with or without a key item.
    static int numberOfColumnsForItemCount(qint64 itemCount, bool hasKeyItem);

protected:
    void layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const override;
};
