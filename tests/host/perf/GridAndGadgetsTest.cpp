// Grid specs, extended traits and the gadget collection's layout.

#include "perf/gadgets/VXGadgetCells.h"
#include "perf/gadgets/VXGadgetCollectionViewLayout.h"
#include "perf/gadgets/VXGadgetUIViewController.h"
#include "perf/grid/VUSectionedGridLayout.h"
#include "perf/grid/VUVistraGridViewControllerSpec.h"
#include "perf/grid/VXExtendedTraitCollection.h"

#include "ui/Window.h"

#include <QTest>

#include "PhoneWindow.h"

#include <gtest/gtest.h>

#include <set>

TEST(GridSpecs, SquareItemsInWholePointsFillTheWidthWithinTheSafeArea)
{
    struct Case {
        const VUVistraGridViewControllerSpec &spec;
        double width;
        ui::EdgeInsets safeArea;
        int columns;
        double side;
        ui::EdgeInsets inset;
    } cases[] = {
        {VUVistraGridViewControllerPhoneSpec(), 390, {}, 4, 96, {0, 0, 0, 0}},
        {VUVistraGridViewControllerPhoneSpec(), 320, {}, 4, 78, {0, 0, 0, 0}},
        {VUVistraGridViewControllerPhoneSpec(), 844, {0, 47, 21, 47}, 8, 92, {0, 47, 21, 47}},
        {VUVistraGridViewControllerPadSpec(), 1024, {}, 6, 157, {20, 20, 20, 20}},
        {VUVistraGridViewControllerPadSpec(), 768, {24, 0, 20, 0}, 5, 139, {44, 20, 40, 20}},
    };
    for (const Case &c : cases) {
        VUSectionedGridLayout grid;
        c.spec.configureGridLayout(&grid, c.width, c.safeArea);
        EXPECT_EQ(grid.numberOfColumns(), c.columns) << c.width;
        EXPECT_EQ(grid.itemSize(), QSizeF(c.side, c.side)) << c.width;
        EXPECT_EQ(grid.sectionContentInset(), c.inset) << c.width;
        const double spacing = c.spec.metrics().spacing;
        EXPECT_EQ(grid.interItemSpacing(), QSizeF(spacing, spacing));
        const double used = c.columns * c.side + (c.columns - 1) * spacing + c.inset.horizontal();
        EXPECT_LE(used, c.width) << "the columns fit";
        EXPECT_GT(used + c.columns, c.width) << "and would not fit a point wider each";
    }
}

TEST(ExtendedTraits, TheLayoutSizeClassFollowsTheWidthOnceAsked)
{
    ui::ViewController controller;
    controller.view()->resize(1024, 700);
    EXPECT_EQ(vx_extendedTraitCollection(&controller).layoutSizeClass, VXLayoutSizeClass::Unspecified);
    vx_enableExtendedTraitCollection(&controller);
    EXPECT_EQ(vx_extendedTraitCollection(&controller).layoutSizeClass, VXLayoutSizeClass::Large);
    controller.view()->resize(699, 700);
    EXPECT_EQ(vx_extendedTraitCollection(&controller).layoutSizeClass, VXLayoutSizeClass::Compact);
    EXPECT_EQ(VUVistraGridViewControllerSpecForLayoutSizeClass(VXLayoutSizeClass::Large).metrics().spacing,
              VUVistraGridViewControllerPadSpec().metrics().spacing);
    EXPECT_EQ(VUVistraGridViewControllerSpecForLayoutSizeClass(VXLayoutSizeClass::Unspecified).metrics().preferredItemWidth,
              VUVistraGridViewControllerPhoneSpec().metrics().preferredItemWidth);
}

TEST(GadgetCollection, CardsStackWithoutOverlapAndRectangleQueriesFindExactlyThoseThatMeetThem)
{
    ui::Window window;
    auto *gadgets = new VXGadgetUIViewController(new VXGadgetCollectionViewLayout, new VXProtoCurioDataSourceManager(6, 20));
    showInPhoneWindow(window, gadgets);
    ui::CollectionView *view = gadgets->collectionView();
    view->layoutIfNeeded();
    auto *layout = static_cast<VXGadgetCollectionViewLayout *>(view->collectionViewLayout());

    std::vector<QRectF> frames;
    std::set<VXGadget::Kind> kinds;
    for (int section = 0; section < 6; ++section)
        for (int item = 0; item < 20; ++item) {
            const ui::IndexPath path = ui::IndexPath::forItem(item, section);
            const auto attributes = layout->layoutAttributesForItemAtIndexPath(path);
            ASSERT_TRUE(attributes);
            const VXGadget &gadget = gadgets->dataSourceManager()->gadgetAtIndexPath(path);
            kinds.insert(gadget.kind);
            EXPECT_EQ(attributes->frame.height(), VXGadgetCell::heightForGadget(gadget, 390 - 32));
            EXPECT_EQ(attributes->frame.left(), 16);
            if (!frames.empty()) {
                EXPECT_GE(attributes->frame.top() - frames.back().bottom(), VXGadgetCollectionViewLayout::CardSpacing);
            }
            frames.push_back(attributes->frame);
        }
    EXPECT_EQ(kinds.size(), 3u) << "text, pictures and rows all appear";
    EXPECT_FALSE(layout->layoutAttributesForItemAtIndexPath(ui::IndexPath::forItem(20, 0)));
    EXPECT_EQ(layout->collectionViewContentSize().height(), frames.back().bottom() + 16);

    for (const QRectF &rect : {QRectF(0, 0, 390, 844), QRectF(0, 1234.5, 390, 300), QRectF(0, frames[40].bottom(), 390, 1)}) {
        std::set<ui::IndexPath> expected, found;
        for (size_t i = 0; i < frames.size(); ++i)
            if (ui::intersects(frames[i], rect))
                expected.insert(ui::IndexPath::forItem(qint64(i % 20), qint64(i / 20)));
        for (const auto &attributes : layout->layoutAttributesForElementsInRect(rect))
            found.insert(attributes.indexPath);
        EXPECT_EQ(found, expected) << rect.top();
    }
    // The cards on screen are the collection view's only cells, each of its gadget's kind.
    for (ui::CollectionViewCell *cell : view->visibleCells())
        EXPECT_EQ(cell->reuseIdentifier(), VXGadgetCell::reuseIdentifierForKind(
                                               gadgets->dataSourceManager()->gadgetAtIndexPath(*view->indexPathForItemAtPoint(cell->geometry().center())).kind));
}

TEST(GadgetCollection, TheSameSeedGivesTheSameFeed)
{
    VXProtoCurioDataSourceManager a, b;
    ASSERT_EQ(a.numberOfSections(), 40);
    for (int section : {0, 17, 39})
        for (int item : {0, 13, 29}) {
            const ui::IndexPath path = ui::IndexPath::forItem(item, section);
            EXPECT_EQ(a.gadgetAtIndexPath(path).title, b.gadgetAtIndexPath(path).title);
            EXPECT_EQ(a.gadgetAtIndexPath(path).body, b.gadgetAtIndexPath(path).body);
            EXPECT_EQ(a.gadgetAtIndexPath(path).seed, b.gadgetAtIndexPath(path).seed);
        }
}
