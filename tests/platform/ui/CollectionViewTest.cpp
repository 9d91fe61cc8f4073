// The collection view and its stock flow layout: frames against hand-computed values and a
// brute-force oracle, cell reuse over a real scroll painted under the offscreen platform,
// selection, prefetching, headers and when layout passes happen.

#include "ui/CollectionView.h"
#include "ui/CollectionViewFlowLayout.h"
#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <gtest/gtest.h>

#include <set>

namespace {

QColor colorOf(const ui::IndexPath &path)
{
    return QColor::fromHsv(int((path.section() * 37 + path.item() * 7) % 360), 200, 230);
}

// Paints its item's colour; counts reuse.
class ColorCell : public ui::CollectionViewCell {
public:
    static inline int created = 0;
    static inline int reused = 0;
    ui::IndexPath path;
    ColorCell() { ++created; }
    void prepareForReuse() override { ++reused; }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), colorOf(path)); }
};

class Header : public ui::CollectionReusableView {
public:
    qint64 section = -1;
};

class Source : public ui::CollectionViewDataSource, public ui::CollectionViewDelegate, public ui::CollectionViewDataSourcePrefetching {
public:
    std::vector<qint64> counts;
    std::function<std::optional<QSizeF>(const ui::IndexPath &)> size;
    QList<ui::IndexPath> selected, deselected, prefetched, cancelled;

    qint64 numberOfSectionsInCollectionView(ui::CollectionView *) override { return qint64(counts.size()); }
    qint64 numberOfItemsInSection(ui::CollectionView *, qint64 section) override { return counts[size_t(section)]; }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *view, const ui::IndexPath &path) override
    {
        auto *cell = static_cast<ColorCell *>(view->dequeueReusableCellWithReuseIdentifier(QStringLiteral("Cell"), path));
        cell->path = path;
        return cell;
    }
    ui::CollectionReusableView *viewForSupplementaryElementOfKind(ui::CollectionView *view, const QString &kind, const ui::IndexPath &path) override
    {
        auto *header = static_cast<Header *>(view->dequeueReusableSupplementaryViewOfKind(kind, QStringLiteral("Header"), path));
        header->section = path.section();
        return header;
    }
    std::optional<QSizeF> sizeForItemAtIndexPath(ui::CollectionView *, ui::CollectionViewLayout *, const ui::IndexPath &path) override
    {
        return size ? size(path) : std::nullopt;
    }
    void didSelectItemAtIndexPath(ui::CollectionView *, const ui::IndexPath &path) override { selected << path; }
    void didDeselectItemAtIndexPath(ui::CollectionView *, const ui::IndexPath &path) override { deselected << path; }
    void prefetchItemsAtIndexPaths(ui::CollectionView *, const QList<ui::IndexPath> &paths) override { prefetched << paths; }
    void cancelPrefetchingForItemsAtIndexPaths(ui::CollectionView *, const QList<ui::IndexPath> &paths) override { cancelled << paths; }
};

// Counts its passes.
class CountingFlowLayout : public ui::CollectionViewFlowLayout {
public:
    int passes = 0;
    void prepareLayout() override
    {
        ++passes;
        CollectionViewFlowLayout::prepareLayout();
    }
};

struct CollectionFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    QWidget window;
    CountingFlowLayout *layout = new CountingFlowLayout;
    ui::CollectionView *view = nullptr;
    Source source;

    void SetUp() override
    {
        window.resize(390, 844);
        view = new ui::CollectionView(layout, &window);
        view->setGeometry(0, 0, 390, 844);
        view->registerCellClass<ColorCell>(QStringLiteral("Cell"));
        view->registerSupplementaryViewFactory(ui::CollectionView::ElementKindSectionHeader, QStringLiteral("Header"),
                                               [] { return new Header; });
        view->setDelegate(&source);
        ColorCell::created = ColorCell::reused = 0;
    }
    void show()
    {
        view->setDataSource(&source);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        view->layoutIfNeeded();
    }
    // Every item whose frame meets `rect`, from the layout's own per-item answers.
    std::set<ui::IndexPath> oracle(const QRectF &rect)
    {
        std::set<ui::IndexPath> paths;
        for (qint64 s = 0; s < qint64(source.counts.size()); ++s)
            for (qint64 i = 0; i < source.counts[size_t(s)]; ++i)
                if (ui::intersects(layout->layoutAttributesForItemAtIndexPath(ui::IndexPath::forItem(i, s))->frame, rect))
                    paths.insert(ui::IndexPath::forItem(i, s));
        return paths;
    }
    std::set<ui::IndexPath> visible() const
    {
        const QList<ui::IndexPath> list = view->indexPathsForVisibleItems();
        return {list.begin(), list.end()};
    }
};

QRectF frameOf(ui::CollectionViewLayout *layout, qint64 item, qint64 section)
{
    return layout->layoutAttributesForItemAtIndexPath(ui::IndexPath::forItem(item, section))->frame;
}

} // namespace

TEST(IndexPath, OrdersIndexByIndexThenByLengthAndHashesByValue)
{
    const ui::IndexPath a = ui::IndexPath::forItem(3, 1);
    EXPECT_EQ(a.section(), 1);
    EXPECT_EQ(a.item(), 3);
    EXPECT_EQ(a, (ui::IndexPath{1, 3}));
    EXPECT_LT((ui::IndexPath{1}), a);
    EXPECT_LT(a, (ui::IndexPath{1, 4}));
    EXPECT_LT(a, (ui::IndexPath{2, 0}));
    EXPECT_EQ((ui::IndexPath{1}).byAppendingIndex(3), a);
    EXPECT_EQ(qHash(a), qHash(ui::IndexPath{1, 3}));
    EXPECT_EQ(ui::IndexPath().length(), 0);
}

TEST_F(CollectionFixture, FlowLayoutJustifiesFullLinesAndPlacesHeadersAndInsets)
{
    source.counts = {7, 2};
    layout->setItemSize(QSizeF(100, 100));
    layout->setSectionInset({5, 10, 15, 10});
    layout->setHeaderReferenceSize(QSizeF(0, 30));
    show();
    // 370 points of room: three items per line, the spare 50 points shared by two gaps of 10.
    EXPECT_EQ(frameOf(layout, 0, 0), QRectF(10, 35, 100, 100));
    EXPECT_EQ(frameOf(layout, 1, 0), QRectF(145, 35, 100, 100));
    EXPECT_EQ(frameOf(layout, 2, 0), QRectF(280, 35, 100, 100));
    EXPECT_EQ(frameOf(layout, 3, 0), QRectF(10, 145, 100, 100));
    EXPECT_EQ(frameOf(layout, 6, 0), QRectF(10, 255, 100, 100)) << "the last line starts at the leading inset";
    EXPECT_EQ(frameOf(layout, 0, 1), QRectF(10, 405, 100, 100));
    EXPECT_EQ(frameOf(layout, 1, 1), QRectF(120, 405, 100, 100)) << "and keeps the minimum spacing";
    const auto header = layout->layoutAttributesForSupplementaryViewOfKind(ui::CollectionView::ElementKindSectionHeader, ui::IndexPath::forItem(0, 1));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->frame, QRectF(0, 370, 390, 30));
    EXPECT_EQ(view->contentSize(), QSizeF(390, 520));
    EXPECT_FALSE(layout->layoutAttributesForItemAtIndexPath(ui::IndexPath::forItem(7, 0)));

    // The line below starts exactly where the rectangle ends: only sharing an edge, not shown.
    const auto attributes = layout->layoutAttributesForElementsInRect(QRectF(0, 145, 390, 110));
    std::set<ui::IndexPath> paths;
    for (const auto &a : attributes)
        paths.insert(a.indexPath);
    EXPECT_EQ(paths, (std::set<ui::IndexPath>{{0, 3}, {0, 4}, {0, 5}}));

    // Delegate sizes: a line is as thick as its thickest item, the others centred in it.
    source.size = [](const ui::IndexPath &p) { return QSizeF(100, p.item() == 1 ? 60 : 100); };
    view->reloadData();
    view->layoutIfNeeded();
    EXPECT_EQ(frameOf(layout, 1, 0), QRectF(145, 55, 100, 60));

    layout->setScrollDirection(ui::CollectionViewFlowLayout::ScrollDirection::Horizontal);
    source.size = nullptr;
    view->layoutIfNeeded();
    // Sideways the insets turn with the axis (left leads, top is the near side), the header's
    // reference width is 0 so there is none, and a column of 824 points holds all 7 items.
    EXPECT_EQ(frameOf(layout, 0, 0), QRectF(10, 5, 100, 100));
    EXPECT_EQ(frameOf(layout, 6, 0), QRectF(10, 5 + 6 * 110, 100, 100));
    EXPECT_EQ(frameOf(layout, 0, 1).left(), 10 + 100 + 10 + 10);
}

TEST_F(CollectionFixture, RectangleQueriesMatchABruteForceOracle)
{
    QRandomGenerator random(12);
    for (int s = 0; s < 60; ++s)
        source.counts.push_back(random.bounded(0, 30));
    source.size = [](const ui::IndexPath &p) { return QSizeF(40 + (p.item() * 13) % 70, 30 + (p.section() * 7 + p.item()) % 50); };
    layout->setHeaderReferenceSize(QSizeF(0, 24));
    layout->setSectionInset({4, 8, 4, 8});
    show();
    const QSizeF content = view->contentSize();
    const auto between = [&random](double low, double high) { return low + random.generateDouble() * (high - low); };
    for (int i = 0; i < 300; ++i) {
        const QRectF rect(between(-50, content.width()), between(-50, content.height()), between(0, 400), between(0, 900));
        std::set<ui::IndexPath> found;
        for (const auto &a : layout->layoutAttributesForElementsInRect(rect)) {
            if (a.category == ui::CollectionViewLayoutAttributes::Category::Cell) {
                EXPECT_TRUE(found.insert(a.indexPath).second) << "reported once";
            }
        }
        ASSERT_EQ(found, oracle(rect)) << "rect " << rect.x() << "," << rect.y() << " " << rect.width() << "x" << rect.height();
    }
}

TEST_F(CollectionFixture, ARealScrollShowsExactlyTheVisibleCellsReusingThemAndPaintsThem)
{
    source.counts.assign(100, 100);
    layout->setItemSize(QSizeF(39, 39));
    layout->setMinimumInteritemSpacing(0);
    layout->setMinimumLineSpacing(0);
    show();
    EXPECT_EQ(visible(), oracle(view->bounds()));
    const int initial = ColorCell::created;
    EXPECT_EQ(initial, 10 * 22) << "ten columns, 21.6 rows on screen";

    // A fling by touch, then frame after frame of deceleration.
    double t = 0;
    ui::sendTouches(view, ui::TouchPhase::Began, {{0, {200, 700}}}, t);
    for (int i = 1; i <= 10; ++i)
        ui::sendTouches(view, ui::TouchPhase::Moved, {{0, {200, 700.0 - 40 * i}}}, t += 0.01);
    ui::sendTouches(view, ui::TouchPhase::Ended, {{0, {200, 300}}}, t);
    int frameCount = 0;
    size_t most = 0;
    while (view->isDecelerating() && frameCount < 2000) {
        frames.step();
        ++frameCount;
        ASSERT_EQ(visible(), oracle(view->bounds())) << "frame " << frameCount;
        most = std::max(most, size_t(view->visibleCells().size()));
    }
    EXPECT_GT(view->contentOffset().y(), 1500);
    EXPECT_GT(ColorCell::reused, 500) << "cells that scrolled out came back";
    EXPECT_LE(ColorCell::created, int(most) + 10) << "no more cells than ever were visible at once, plus a row";
    EXPECT_LE(view->contentView()->children().size(), qsizetype(most) + 10);

    // Each visible cell sits at its frame and shows its own item.
    for (ui::CollectionViewCell *cell : view->visibleCells()) {
        const ui::IndexPath path = static_cast<ColorCell *>(cell)->path;
        EXPECT_EQ(QRectF(cell->geometry()), frameOf(layout, path.item(), path.section()));
        EXPECT_EQ(view->cellForItemAtIndexPath(path), cell);
    }
    const QImage shot = window.grab().toImage();
    for (const QPointF point : {QPointF(20, 20), QPointF(200, 400), QPointF(370, 820)}) {
        const std::optional<ui::IndexPath> path = view->indexPathForItemAtPoint(point - view->contentView()->pos());
        ASSERT_TRUE(path);
        EXPECT_EQ(shot.pixel(point.toPoint()), colorOf(*path).rgb()) << "at " << point.x() << "," << point.y();
    }
}

TEST_F(CollectionFixture, TappingSelectsUnlessItCatchesScrollingContent)
{
    source.counts = {500};
    show();
    ui::CollectionViewCell *cell = view->cellForItemAtIndexPath(ui::IndexPath::forItem(2, 0));
    ASSERT_TRUE(cell);
    QTest::mouseClick(cell, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(source.selected, QList<ui::IndexPath>{ui::IndexPath::forItem(2, 0)});
    EXPECT_TRUE(cell->isSelected());
    QTest::mouseClick(view->cellForItemAtIndexPath(ui::IndexPath::forItem(3, 0)), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(source.deselected, QList<ui::IndexPath>{ui::IndexPath::forItem(2, 0)});
    EXPECT_FALSE(cell->isSelected());
    EXPECT_EQ(view->indexPathsForSelectedItems(), QList<ui::IndexPath>{ui::IndexPath::forItem(3, 0)});

    view->flingWithVelocity(QPointF(0, 1500));
    frames.step(3);
    const QPointF caught = view->contentOffset();
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(60, 60));
    EXPECT_EQ(source.selected.size(), 2) << "the tap only stopped the scroll";
    EXPECT_EQ(view->contentOffset(), caught);
    const std::optional<ui::IndexPath> next = view->indexPathForItemAtPoint(QPointF(25, 25) - view->contentView()->pos());
    ASSERT_TRUE(next && *next != ui::IndexPath::forItem(3, 0));
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(25, 25));
    EXPECT_EQ(source.selected.size(), 3);
    EXPECT_EQ(source.selected.last(), *next);
}

TEST_F(CollectionFixture, PrefetchingLooksAScreenAheadAndCancelsWhatScrolledAwayUnseen)
{
    source.counts = {2000};
    layout->setItemSize(QSizeF(390, 100));
    layout->setMinimumLineSpacing(0);
    view->setPrefetchDataSource(&source);
    show();
    // Items 0-8 are on screen; 9-16 within a screen below.
    ASSERT_FALSE(source.prefetched.isEmpty());
    EXPECT_EQ(source.prefetched.front(), ui::IndexPath::forItem(9, 0));
    EXPECT_EQ(source.prefetched.back(), ui::IndexPath::forItem(16, 0));
    source.prefetched.clear();
    view->setContentOffset(QPointF(0, 500));
    EXPECT_TRUE(source.cancelled.isEmpty()) << "what was prefetched came into view";
    EXPECT_TRUE(source.prefetched.contains(ui::IndexPath::forItem(21, 0)));
    EXPECT_FALSE(source.prefetched.contains(ui::IndexPath::forItem(22, 0)));
    view->setContentOffset(QPointF(0, 50000));
    std::set<ui::IndexPath> cancelled(source.cancelled.begin(), source.cancelled.end());
    EXPECT_TRUE(cancelled.count(ui::IndexPath::forItem(21, 0)));
    EXPECT_FALSE(cancelled.count(ui::IndexPath::forItem(9, 0))) << "seen items are not cancelled";
}

TEST_F(CollectionFixture, HeadersAreDequeuedLikeCellsAndPassesFollowInvalidation)
{
    source.counts.assign(20, 12);
    layout->setHeaderReferenceSize(QSizeF(0, 40));
    show();
    auto *header = static_cast<Header *>(view->supplementaryViewForElementKind(ui::CollectionView::ElementKindSectionHeader, ui::IndexPath::forItem(0, 0)));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->geometry(), QRect(0, 0, 390, 40));
    view->setContentOffset(QPointF(0, 1500));
    EXPECT_FALSE(view->supplementaryViewForElementKind(ui::CollectionView::ElementKindSectionHeader, ui::IndexPath::forItem(0, 0)));
    EXPECT_GE(header->section, 1) << "the header object went on to head a later section";

    const int passes = layout->passes;
    view->setContentOffset(QPointF(0, 100));
    EXPECT_EQ(layout->passes, passes) << "scrolling alone never relayouts";
    layout->setItemSize(QSizeF(80, 80));
    EXPECT_EQ(frameOf(layout, 0, 0).size(), QSizeF(50, 50)) << "until the next pass";
    EXPECT_TRUE(QTest::qWaitFor([&] { return layout->passes == passes + 1; }, 1000));
    EXPECT_EQ(frameOf(layout, 0, 0).size(), QSizeF(80, 80));
    view->resize(300, 844);
    EXPECT_EQ(layout->passes, passes + 2) << "a new width is a new pass, at once";
    EXPECT_LE(frameOf(layout, 2, 0).right(), 300);
}
