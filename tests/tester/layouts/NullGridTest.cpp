// The null grid: its arithmetic frames, enumeration bounds and identifiers, the tile hues, and
// the controller scrolling all 76,930 tiles with only the visible ones alive.

#include "layouts/VUTesterNullGridLayout.h"
#include "layouts/VUTesterNullTile.h"
#include "layouts/VUTesterTilingControllerNullGridViewController.h"

#include "ui/BackgroundColor.h"
#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"
#include "ui/ScrollView.h"
#include "ui/Window.h"

#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

std::unique_ptr<VUTesterNullGridLayout> preparedGrid(double width, qint64 columns = 10, qint64 length = 300000)
{
    auto layout = std::make_unique<VUTesterNullGridLayout>();
    layout->setColumns(columns);
    layout->setDesiredContentLength(length);
    layout->setReferenceSize(QSizeF(width, 844));
    layout->prepareLayout();
    return layout;
}

VXTileIdentifier identifierOf(qint64 item)
{
    VXTileIdentifier identifier;
    identifier.length = 5;
    identifier.indexes = {VXAssetContentTileKind, 1, 0, quint64(item), VXTileIndexNotFound};
    return identifier;
}

// Items reported for `rect`, in order; the block stops after `limit` when one is given.
std::vector<qint64> enumerate(VXTilingLayout &layout, const QRectF &rect, int limit = -1)
{
    std::vector<qint64> items;
    layout.enumerateTilesInRect(rect, 0, [&](const VXTileIdentifier &id, const VXTileGeometry &geometry, VXTileGroup group, const void *userData, bool *stop) {
        EXPECT_EQ(id, identifierOf(qint64(id.indexes[3])));
        EXPECT_EQ(group, 0u);
        EXPECT_EQ(userData, nullptr);
        EXPECT_TRUE(ui::intersects(geometry.frame, rect));
        items.push_back(qint64(id.indexes[3]));
        if (int(items.size()) == limit)
            *stop = true;
    });
    return items;
}

std::vector<qint64> range(qint64 first, qint64 last)
{
    std::vector<qint64> items;
    for (qint64 i = first; i <= last; ++i)
        items.push_back(i);
    return items;
}

QColor hueOf(qint64 item)
{
    return QColor::fromHsvF(float(item % 255) / 255.0f, 0.8f, 1.0f, 1.0f);
}

} // namespace

TEST(NullGridLayout, SquareTilesFromTheWidthAndWholeRowsPastTheLength)
{
    auto grid = preparedGrid(390);
    EXPECT_EQ(grid->itemSize(), QSizeF(39, 39));
    EXPECT_EQ(grid->numberOfItems(), 76930) << "300000 / 39 + 1 = 7693 rows";
    EXPECT_EQ(grid->contentBounds(), QRectF(0, 0, 390, 39 * 7693));

    VXTileGeometry geometry;
    VXTileGroup group = 9;
    const void *userData = &group;
    ASSERT_TRUE(grid->getGeometry(&geometry, &group, &userData, identifierOf(25)));
    EXPECT_EQ(geometry.frame, QRectF(195, 78, 39, 39));
    EXPECT_EQ(geometry.center, QPointF(214.5, 97.5));
    EXPECT_EQ(geometry.size, QSizeF(39, 39));
    EXPECT_TRUE(geometry.transform.isIdentity());
    EXPECT_EQ(geometry.alpha, 1.0);
    EXPECT_EQ(geometry.zPosition, 0.0);
    EXPECT_FALSE(geometry.hidden);
    EXPECT_EQ(geometry.contentSize, QSizeF(39, 39));
    EXPECT_EQ(geometry.contentsRect, QRectF(0, 0, 1, 1));
    EXPECT_EQ(geometry.coordinateSpaceIdentifier, grid->coordinateSpaceIdentifier());
    EXPECT_EQ(group, 0u);
    EXPECT_EQ(userData, nullptr);
    EXPECT_TRUE(grid->getGeometry(&geometry, nullptr, nullptr, identifierOf(100000))) << "past the last item too";
    EXPECT_EQ(geometry.frame, QRectF(0, 390000, 39, 39));

    EXPECT_EQ(preparedGrid(395)->itemSize(), QSizeF(39, 39)) << "a 5-point strip stays unused at the right";
    auto none = preparedGrid(390, 0);
    EXPECT_EQ(none->contentBounds().height(), 0);
    EXPECT_TRUE(enumerate(*none, QRectF(0, 0, 390, 844)).empty());
}

TEST(NullGridLayout, EnumerationReportsTheRectanglesTilesInItemOrderAndNothingBeyond)
{
    auto grid = preparedGrid(390);
    EXPECT_EQ(enumerate(*grid, QRectF(0, 78, 390, 78)), range(20, 39)) << "rows 2 and 3; row 4 only shares an edge";
    EXPECT_EQ(enumerate(*grid, QRectF(0, -100, 390, 150)), range(0, 19)) << "from item 0 when starting above";
    EXPECT_EQ(enumerate(*grid, QRectF(40, 0, 38, 39)), std::vector<qint64>{1});
    EXPECT_EQ(enumerate(*grid, QRectF(0, 39 * 7692 + 1, 390, 500)), range(76920, 76929)) << "the last row, and nothing after it";
    EXPECT_TRUE(enumerate(*grid, QRectF(0, 39 * 7693, 390, 100)).empty());
    EXPECT_TRUE(enumerate(*grid, QRectF(0, 1e7, 390, 100)).empty());
    EXPECT_EQ(enumerate(*grid, QRectF(0, 0, 390, 844), 3), range(0, 2)) << "the stop flag ends it";
}

TEST(NullGridController, TilesTakeAHueThatRepeatsEvery255Items)
{
    VUTesterTilingControllerNullGridViewController controller;
    controller.view();
    VXTile *zero = controller.checkOutTileForIdentifier(identifierOf(0), nullptr);
    VXTile *one = controller.checkOutTileForIdentifier(identifierOf(1), nullptr);
    VXTile *again = controller.checkOutTileForIdentifier(identifierOf(255), nullptr);
    const auto colorOf = [](VXTile *tile) { return ui::backgroundColor(static_cast<VUTesterNullTile *>(tile)); };
    EXPECT_EQ(colorOf(zero).rgb(), hueOf(0).rgb());
    EXPECT_EQ(colorOf(again).rgb(), colorOf(zero).rgb());
    EXPECT_NEAR(colorOf(one).hsvHueF(), 1 / 255.0, 1e-4);
    EXPECT_NEAR(colorOf(one).hsvSaturationF(), 0.8, 1e-2);
    EXPECT_EQ(controller.tilesInUse().size(), 3);
    controller.checkInTile(one, identifierOf(1));
    EXPECT_EQ(controller.tilesInUse().size(), 2);
    EXPECT_FALSE(static_cast<VUTesterNullTile *>(one)->isHidden()) << "a tile back in the pool is shown again";
    EXPECT_EQ(controller.checkOutTileForIdentifier(identifierOf(7), nullptr), one);
    EXPECT_TRUE(static_cast<VUTesterNullTile *>(one)->isHidden()) << "hidden until the animator places it";
}

TEST(NullGridController, ScrollsAllTilesWithOnlyTheVisibleOnesAlive)
{
    ui::DisplayLink::ManualStepping frames;
    ui::Window window;
    auto *controller = new VUTesterTilingControllerNullGridViewController;
    window.setRootViewController(controller);
    window.resize(390, 844);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    ui::ScrollView *scroll = controller->scrollView();
    ASSERT_EQ(scroll->size(), QSize(390, 844)) << "it follows its parent's size";
    EXPECT_EQ(scroll->contentSize(), QSizeF(390, 39 * 7693));

    const auto liveTiles = [scroll] { return scroll->contentView()->findChildren<VUTesterNullTile *>().size(); };
    // The tiles a visible rectangle needs: whole rows of ten, those meeting it.
    const auto needed = [scroll] {
        const QRectF bounds = scroll->bounds();
        const qint64 first = std::max<qint64>(0, qint64(std::floor(bounds.top() / 39)));
        const qint64 last = std::min<qint64>(7692, qint64(std::ceil(bounds.bottom() / 39)) - 1);
        return qsizetype(10 * (last - first + 1));
    };
    EXPECT_EQ(controller->tilesInUse().size(), 220);

    double t = 0;
    qsizetype most = 0;
    // Three long flings down the grid, then a jump to its end.
    for (int fling = 0; fling < 3; ++fling) {
        ui::sendTouches(scroll, ui::TouchPhase::Began, {{0, {200, 800}}}, t);
        for (int i = 1; i <= 10; ++i)
            ui::sendTouches(scroll, ui::TouchPhase::Moved, {{0, {200, 800.0 - 70 * i}}}, t += 0.01);
        ui::sendTouches(scroll, ui::TouchPhase::Ended, {{0, {200, 100}}}, t);
        t += 1;
        for (int frame = 0; frame < 1000 && scroll->isDecelerating(); ++frame) {
            frames.step();
            ASSERT_EQ(controller->tilesInUse().size(), needed()) << "at offset " << scroll->contentOffset().y();
            most = std::max(most, controller->tilesInUse().size());
            ASSERT_LE(liveTiles(), most + 10);
        }
    }
    EXPECT_GT(scroll->contentOffset().y(), 9000);
    scroll->setContentOffset(scroll->maximumContentOffset());
    EXPECT_EQ(controller->tilesInUse().size(), needed());
    EXPECT_LE(liveTiles(), most + 10) << "76,930 tiles, never more views than a screenful and a row";

    // What is on screen is the grid: each sampled pixel has the hue of the item under it (away
    // from the scroll indicator at the right edge).
    const QImage shot = window.grab().toImage();
    for (const QPoint point : {QPoint(5, 5), QPoint(200, 420), QPoint(370, 838)}) {
        const QPointF content = QPointF(point) - QPointF(scroll->contentView()->pos());
        const qint64 item = qint64(content.y() / 39) * 10 + qint64(content.x() / 39);
        EXPECT_EQ(shot.pixel(point), hueOf(item).rgb()) << "item " << item;
    }
}
