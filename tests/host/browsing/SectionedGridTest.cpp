#include "browsing/VUSectionedGrid.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

using Hit = std::tuple<qint64, qint64>;

std::vector<Hit> query(const VUSectionedGrid &grid, const QRectF &rect)
{
    std::vector<Hit> hits;
    grid.enumerateItemsInRect(rect, [&](qint64 section, qint64 item, const QRectF &frame) {
        EXPECT_EQ(frame, grid.frameForItem(section, item));
        hits.emplace_back(section, item);
        return true;
    });
    return hits;
}

// Every cell, tested one by one.
std::vector<Hit> oracle(const VUSectionedGrid &grid, const QRectF &rect)
{
    std::vector<Hit> hits;
    for (qint64 s = 0; s < grid.numberOfSections(); ++s)
        for (qint64 i = 0; i < grid.numberOfItemsInSection(s); ++i)
            if (grid.frameForItem(s, i).intersects(rect))
                hits.emplace_back(s, i);
    return hits;
}

} // namespace

TEST(SectionedGrid, FramesAndHeightByHand)
{
    VUSectionedGrid grid;
    // 4 columns of (398 - 3 * 2) / 4 = 98 points; sections of 5, 0 and 4 items.
    grid.layout({398, 4, 2, 24}, {5, 0, 4});
    EXPECT_DOUBLE_EQ(grid.cellSide(), 98);
    EXPECT_EQ(grid.frameForItem(0, 0), QRectF(0, 0, 98, 98));
    EXPECT_EQ(grid.frameForItem(0, 3), QRectF(300, 0, 98, 98));
    EXPECT_EQ(grid.frameForItem(0, 4), QRectF(0, 100, 98, 98));
    EXPECT_EQ(grid.frameForSection(0), QRectF(0, 0, 398, 198));
    // The empty section takes its gap and no rows; the next section starts below both gaps.
    EXPECT_EQ(grid.frameForSection(1), QRectF(0, 222, 398, 0));
    EXPECT_EQ(grid.frameForItem(2, 0), QRectF(0, 246, 98, 98));
    EXPECT_DOUBLE_EQ(grid.contentHeight(), 344);

    grid.layout({398, 0, 2, 24}, {2});
    EXPECT_EQ(grid.metrics().columns, 1) << "at least one column";
    EXPECT_EQ(grid.frameForItem(0, 1), QRectF(0, 400, 398, 398));

    grid.layout({398, 4, 2, 24}, {});
    EXPECT_DOUBLE_EQ(grid.contentHeight(), 0);
    EXPECT_TRUE(query(grid, QRectF(0, 0, 398, 800)).empty());
}

TEST(SectionedGrid, RectangleQueriesMatchAScanOfEveryCell)
{
    std::vector<qint64> counts;
    for (quint64 s = 0; s < 300; ++s)
        counts.push_back(qint64((s * (s % 7) * 747) % 23 + 3) * (s % 11 == 5 ? 0 : 1));
    VUSectionedGrid grid;
    grid.layout({390, 4, 2, 20}, counts);

    QRandomGenerator random(12);
    for (int trial = 0; trial < 400; ++trial) {
        const QRectF rect(random.bounded(500.0) - 50, random.bounded(grid.contentHeight() + 200) - 100, random.bounded(400.0),
                          random.bounded(1200.0));
        ASSERT_EQ(query(grid, rect), oracle(grid, rect)) << rect.x() << "," << rect.y() << " " << rect.width() << "x" << rect.height();
    }
    // Edges only touching do not count: the row below a cell's bottom edge, the gap beside it.
    const QRectF cell = grid.frameForItem(0, 0);
    EXPECT_EQ(query(grid, QRectF(0, cell.bottom(), 390, 2)), std::vector<Hit>());
    EXPECT_EQ(query(grid, QRectF(cell.right(), 0, 2, 10)), std::vector<Hit>());
    EXPECT_EQ(query(grid, QRectF(0, 0, 0, 100)), std::vector<Hit>()) << "an empty rectangle meets nothing";
}

TEST(SectionedGrid, EnumerationStopsWhenAsked)
{
    VUSectionedGrid grid;
    grid.layout({390, 4, 2, 20}, {10, 10});
    int visits = 0;
    grid.enumerateItemsInRect(QRectF(0, 0, 390, 2000), [&](qint64, qint64, const QRectF &) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
}
