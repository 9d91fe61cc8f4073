// The continuous strip layouts inside a real collection view: frames and content sizes against
// hand-computed values, visual indexes across empty sections, and rectangle queries against an
// oracle that applies the one-record-back rule by brute force.

#include "layouts/VUTesterOneUpCollectionViewLayout.h"
#include "layouts/VUTesterSharingCollectionViewLayout.h"

#include "ui/CollectionView.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <set>

namespace {

class Source : public ui::CollectionViewDataSource, public ui::CollectionViewDelegate {
public:
    std::vector<qint64> counts;
    std::function<QSizeF(const ui::IndexPath &)> size = [](const ui::IndexPath &) { return QSizeF(400, 300); };

    qint64 numberOfSectionsInCollectionView(ui::CollectionView *) override { return qint64(counts.size()); }
    qint64 numberOfItemsInSection(ui::CollectionView *, qint64 section) override { return counts[size_t(section)]; }
    ui::CollectionViewCell *cellForItemAtIndexPath(ui::CollectionView *view, const ui::IndexPath &path) override
    {
        return view->dequeueReusableCellWithReuseIdentifier(QStringLiteral("Cell"), path);
    }
    std::optional<QSizeF> sizeForItemAtIndexPath(ui::CollectionView *, ui::CollectionViewLayout *, const ui::IndexPath &path) override
    {
        return size(path);
    }
};

template <typename Base>
class Counting : public Base {
public:
    int invalidations = 0;
    void invalidateLayout() override
    {
        ++invalidations;
        Base::invalidateLayout();
    }
};

// A layout installed in a 390 x 844 collection view.
template <typename Layout>
struct Strip {
    QWidget window;
    Source source;
    Layout *layout = new Layout;
    ui::CollectionView *view = new ui::CollectionView(layout, &window);

    explicit Strip(std::vector<qint64> counts)
    {
        source.counts = std::move(counts);
        view->resize(390, 844);
        view->registerCellClass<ui::CollectionViewCell>(QStringLiteral("Cell"));
        view->setDelegate(&source);
        view->setDataSource(&source);
        view->layoutIfNeeded();
    }
    ~Strip() { view->setDelegate(nullptr); }
    QRectF frame(qint64 item, qint64 section = 0) { return layout->layoutAttributesForItemAtIndexPath(ui::IndexPath::forItem(item, section))->frame; }
};

std::set<ui::IndexPath> pathsOf(const QList<ui::CollectionViewLayoutAttributes> &attributes)
{
    std::set<ui::IndexPath> paths;
    for (const auto &a : attributes)
        paths.insert(a.indexPath);
    return paths;
}

// The query rule by brute force: start one record before the first whose leading edge is not
// less than the rectangle's (counted, not searched), keep whatever intersects from there on.
std::set<ui::IndexPath> oneRecordBack(const QList<ui::CollectionViewLayoutAttributes> &all, const QRectF &rect, bool horizontal)
{
    const auto lead = [horizontal](const QRectF &r) { return horizontal ? r.left() : r.top(); };
    qsizetype before = 0;
    for (const auto &a : all)
        before += lead(a.frame) < lead(rect) ? 1 : 0;
    std::set<ui::IndexPath> paths;
    for (qsizetype i = std::max<qsizetype>(0, before - 1); i < all.size(); ++i)
        if (ui::intersects(all[i].frame, rect))
            paths.insert(all[i].indexPath);
    return paths;
}

// Frames supplied by the test, in visual order.
class FixedFramesLayout : public VUTesterContinuousCollectionViewLayout {
public:
    QList<QRectF> frames;
    void prepareLayout() override
    {
        VUTesterContinuousCollectionViewLayout::prepareLayout();
        prepareAllLayoutAttributesUsingBlock([this](const ui::IndexPath &path, qint64 visual) {
            return ui::CollectionViewLayoutAttributes::forCell(path, frames.value(visual));
        });
    }
};

} // namespace

TEST(ContinuousLayouts, WithoutSectionsEverythingIsEmptyAndTheSizeStaysUncached)
{
    Strip<VUTesterOneUpCollectionViewLayout> strip({});
    EXPECT_EQ(strip.layout->numberOfVisualItems(), 0);
    EXPECT_TRUE(strip.layout->allLayoutAttributes().isEmpty());
    EXPECT_TRUE(strip.layout->firstVisualItemBySection().isEmpty());
    EXPECT_EQ(strip.layout->collectionViewContentSize(), QSizeF(0, 0));
    EXPECT_EQ(strip.layout->_contentSize(), QSizeF(0, 0));
    EXPECT_TRUE(strip.layout->layoutAttributesForElementsInRect(QRectF(-100, -100, 1000, 1000)).isEmpty());
}

TEST(ContinuousLayouts, VisualIndexesRunAcrossSectionsAndSkipEmptyOnes)
{
    Strip<VUTesterOneUpCollectionViewLayout> strip({2, 0, 0, 3, 0, 1});
    EXPECT_EQ(strip.layout->firstVisualItemBySection(), (QList<qint64>{0, 2, 2, 2, 5, 5}));
    EXPECT_EQ(strip.layout->numberOfVisualItems(), 6);
    const ui::IndexPath expected[] = {{0, 0}, {0, 1}, {3, 0}, {3, 1}, {3, 2}, {5, 0}};
    for (qint64 v = 0; v < 6; ++v) {
        EXPECT_EQ(strip.layout->indexPathForVisualItem(v), expected[v]) << "visual item " << v;
        EXPECT_EQ(strip.layout->visualItemForIndexPath(expected[v]), v);
        EXPECT_EQ(strip.layout->allLayoutAttributes()[v].indexPath, expected[v]) << "records are in visual order";
    }
}

TEST(ContinuousLayouts, OneUpPagesFillTheBoundsAndRelayoutOnlyForANewSize)
{
    Strip<Counting<VUTesterOneUpCollectionViewLayout>> strip({3});
    const int before = strip.layout->invalidations;
    strip.layout->setInterpageSpacing(QSizeF(30, 30));
    EXPECT_EQ(strip.layout->invalidations, before + 1);
    strip.layout->setInterpageSpacing(QSizeF(30, 30));
    EXPECT_EQ(strip.layout->invalidations, before + 1) << "no change, no invalidation";
    strip.view->layoutIfNeeded();
    EXPECT_EQ(strip.frame(2), QRectF(840, 0, 390, 844));
    EXPECT_EQ(strip.layout->scrollDirection(), 1);
    EXPECT_EQ(strip.layout->collectionViewContentSize(), QSizeF(1230, 844));
    EXPECT_EQ(strip.view->contentSize(), QSizeF(1230, 844));
    EXPECT_FALSE(strip.layout->shouldInvalidateLayoutForBoundsChange(QRectF(500, 0, 390, 844))) << "scrolling";
    EXPECT_TRUE(strip.layout->shouldInvalidateLayoutForBoundsChange(QRectF(0, 0, 390, 800)));
    strip.view->resize(300, 600); // hidden: no resize event until shown, the next pass sees it
    strip.view->layoutIfNeeded();
    EXPECT_EQ(strip.frame(1), QRectF(330, 0, 300, 600));
}

TEST(ContinuousLayouts, SharingFitsItemsToTheRowCentresTheFirstAndKeepsItsInsetsQuirk)
{
    Strip<Counting<VUTesterSharingCollectionViewLayout>> strip({2, 1});
    const int before = strip.layout->invalidations;
    EXPECT_EQ(strip.layout->verticalFraction(), 1.0);
    strip.layout->setVerticalFraction(1.0);
    EXPECT_EQ(strip.layout->invalidations, before);
    strip.layout->setVerticalFraction(0.5);
    strip.layout->setInsets({40, 40, 40, 40});
    strip.layout->setInsets({40, 40, 40, 40});
    strip.layout->setInterItemSpacing(QSizeF(30, 30));
    EXPECT_EQ(strip.layout->invalidations, before + 2) << "the spacing only stores";
    strip.view->layoutIfNeeded();
    // h = round(844 x 0.5) - 80 = 342; f = round(400 x 342 / 300) = 456; w = min(390 - 80, 456).
    EXPECT_EQ(strip.frame(0), QRectF(40, 40, 310, 342));
    EXPECT_EQ(strip.frame(1), QRectF(40 + 310 + 30, 40, 310, 342));
    EXPECT_EQ(strip.frame(0, 1).left(), 380 + 310 + 30) << "only the strip's first item is centred";
    EXPECT_EQ(strip.layout->collectionViewContentSize(), QSizeF(std::round(720 + 155 + 195.0), 382));

    strip.layout->setInterItemSpacing(QSizeF(0, 0));
    EXPECT_EQ(strip.frame(1).left(), 380) << "not before the next pass";
    strip.source.size = [](const ui::IndexPath &p) { return p.item() == 0 ? QSizeF(2000, 100) : QSizeF(150, 300); };
    strip.layout->setInsets({0, 10, 50, 100});
    strip.view->layoutIfNeeded();
    // h = 422 - 50 = 372; the width limit is 390 - left - bottom = 330, not 390 - left - right.
    EXPECT_EQ(strip.frame(0), QRectF(30, 0, 330, 372));
    EXPECT_EQ(strip.frame(1), QRectF(360, 0, 186, 372));
    EXPECT_TRUE(strip.layout->shouldInvalidateLayoutForBoundsChange(QRectF(0, 0, 391, 844)));
    EXPECT_FALSE(strip.layout->shouldInvalidateLayoutForBoundsChange(QRectF(900, 0, 390, 844)));
}

TEST(ContinuousLayouts, RectangleQueriesFollowTheOneRecordBackRule)
{
    QRandomGenerator random(7);
    Strip<VUTesterSharingCollectionViewLayout> strip({40, 0, 70, 90});
    strip.source.size = [](const ui::IndexPath &p) { return QSizeF(50 + (p.item() * 37 + p.section() * 11) % 300, 100 + (p.item() * 53) % 200); };
    strip.layout->setInterItemSpacing(QSizeF(12, 0));
    strip.layout->setVerticalFraction(0.7);
    strip.view->layoutIfNeeded();
    const QList<ui::CollectionViewLayoutAttributes> all = strip.layout->allLayoutAttributes();
    const double width = strip.layout->collectionViewContentSize().width();
    const auto between = [&random](double low, double high) { return low + random.generateDouble() * (high - low); };
    for (int i = 0; i < 500; ++i) {
        const QRectF rect(between(-400, width + 400), between(-100, 900), between(0, 1200), between(0, 900));
        const std::set<ui::IndexPath> found = pathsOf(strip.layout->layoutAttributesForElementsInRect(rect));
        ASSERT_EQ(found, oneRecordBack(all, rect, true));
        std::set<ui::IndexPath> everything;
        for (const auto &a : all)
            if (ui::intersects(a.frame, rect))
                everything.insert(a.indexPath);
        ASSERT_EQ(found, everything) << "a strip of disjoint frames loses nothing to the rule";
    }
}

TEST(ContinuousLayouts, AnItemTwoRecordsBackIsNotReturnedEvenIfItReachesIn)
{
    QWidget window;
    Source source;
    source.counts = {3};
    auto *layout = new FixedFramesLayout;
    layout->frames = {QRectF(0, 0, 10, 1000), QRectF(0, 10, 10, 10), QRectF(0, 20, 10, 10)};
    ui::CollectionView view(layout, &window);
    view.resize(390, 844);
    view.registerCellClass<ui::CollectionViewCell>(QStringLiteral("Cell"));
    view.setDataSource(&source);
    view.layoutIfNeeded();
    EXPECT_EQ(layout->scrollDirection(), 0) << "a plain instance scrolls vertically";
    EXPECT_EQ(pathsOf(layout->layoutAttributesForElementsInRect(QRectF(0, 25, 10, 5))), (std::set<ui::IndexPath>{{0, 2}}));
    EXPECT_EQ(pathsOf(layout->layoutAttributesForElementsInRect(QRectF(0, 12, 10, 5))), (std::set<ui::IndexPath>{{0, 1}}));
    EXPECT_EQ(pathsOf(layout->layoutAttributesForElementsInRect(QRectF(0, 5, 10, 10))), (std::set<ui::IndexPath>{{0, 0}, {0, 1}}))
        << "one record back is still looked at";
    EXPECT_EQ(pathsOf(layout->layoutAttributesForElementsInRect(QRectF(0, 5, 10, 3))), (std::set<ui::IndexPath>{{0, 0}}))
        << "a rectangle starting inside the first frame includes it";
    EXPECT_TRUE(layout->layoutAttributesForElementsInRect(QRectF(0, 2000, 10, 5)).isEmpty());
    EXPECT_EQ(layout->collectionViewContentSize(), QSizeF(10, 1000));

    layout->frames = {QRectF(50, 60, 10, 10)};
    source.counts = {1};
    view.reloadData();
    view.layoutIfNeeded();
    EXPECT_EQ(layout->collectionViewContentSize(), QSizeF(60, 70)) << "the union includes the origin";
}
