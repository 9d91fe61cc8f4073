#pragma once
// Rows of justified items, as a grid of years and months shows them. The key item stands alone in
// the first row, as wide as the layout unless that would make it taller than the width. The
// other items follow in order: a row takes items until, scaled to one height so that together
// with the spacing they fill the width exactly, they are no taller than maximumRowHeight() (a
// fifth of the width). So a row's height follows the aspect ratios of its items, and every item
// shows whole.
//
// A row that cannot fill the width without growing past its limit (the last row, short of
// items, or a row of items so narrow that their gaps would take half the width) keeps its limit
// as its height and starts at the left edge.
//
// Promises, for any input: no two frames overlap; every frame lies within the width; every row
// that is not at its limit fills the width exactly; no row is taller than its limit; the items
// other than the key item follow their order, row by row; the content is as tall as the rows.
// Whenever the aspect ratios lie between 1 : 4 and 4 : 1, the key item has the largest area: it
// takes at least a quarter of the width squared, every other item at most a fifth.

#include "VXLayoutGenerator.h"

class VXYearsMonthsLayoutGenerator : public VXLayoutGenerator {
public:
    explicit VXYearsMonthsLayoutGenerator(const VXLayoutMetrics &metrics);

    double maximumRowHeight() const;
    double maximumKeyItemHeight() const;

protected:
    void layout(const std::vector<VXLayoutItem> &items, qint64 keyItemIndex, Result *result) const override;
};
