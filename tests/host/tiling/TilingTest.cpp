// The tiling machinery with a one-column layout: the pool's order of events, which tiles a
// controller checks out and in as the view scrolls, preheating and relayout.

#include "QtPrinters.h"

#include "tiling/VXBasicUIViewTileAnimator.h"
#include "tiling/VXReusableObjectPool.h"
#include "tiling/VXTilingController.h"
#include "tiling/VXUIScrollViewController.h"

#include <QSet>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

// Rows of 50 points across the whole reference width; odd rows are in tile group 1.
class RowLayout : public VXTilingLayout {
public:
    explicit RowLayout(qint64 rows) : m_rows(rows) {}
    int passes = 0;
    static VXTileIdentifier identifierOf(qint64 row)
    {
        VXTileIdentifier identifier;
        identifier.length = 2;
        identifier.indexes[0] = VXAssetContentTileKind;
        identifier.indexes[1] = quint64(row);
        return identifier;
    }
    void prepareLayout() override
    {
        VXTilingLayout::prepareLayout();
        ++passes;
    }
    QRectF contentBounds() const override { return QRectF(0, 0, referenceSize().width(), 50.0 * double(m_rows)); }
    void enumerateTilesInRect(const QRectF &rect, VXTileEnumerationOptions, const VXTileEnumerationBlock &block) override
    {
        bool stop = false;
        for (qint64 row = std::max<qint64>(0, qint64(rect.top() / 50)); row < m_rows && !stop && row * 50 < rect.bottom(); ++row) {
            VXTileGeometry geometry;
            getGeometry(&geometry, nullptr, nullptr, identifierOf(row));
            block(identifierOf(row), geometry, VXTileGroup(row % 2), nullptr, &stop);
        }
    }
    bool getGeometry(VXTileGeometry *geometry, VXTileGroup *group, const void **userData, const VXTileIdentifier &identifier) override
    {
        const qint64 row = qint64(identifier.indexes[1]);
        if (geometry) {
            geometry->frame = QRectF(0, 50.0 * double(row), referenceSize().width(), 50);
            geometry->coordinateSpaceIdentifier = coordinateSpaceIdentifier();
        }
        if (group)
            *group = VXTileGroup(row % 2);
        if (userData)
            *userData = nullptr;
        return row < m_rows;
    }

private:
    qint64 m_rows;
};

class RowTile : public QWidget, public VXUIViewBasicTile {
public:
    explicit RowTile(QStringList *log) : m_log(log) {}
    QString name;
    qint64 row = -1;
    QWidget *view() override { return this; }
    void didApplyGeometry(const VXTileGeometry &, const void *) override {}
    void prepareForReuse() override { *m_log << name + QStringLiteral(" prepareForReuse"); }
    void becomeReusable() override { *m_log << name + QStringLiteral(" becomeReusable"); }

private:
    QStringList *m_log;
};

class LoggingPoolDelegate : public VXReusableObjectPoolDelegate {
public:
    explicit LoggingPoolDelegate(QStringList *log) : m_log(log) {}
    void didCreateReusableObject(VXReusableObjectPool *, VXReusableObject *o) override { *m_log << name(o) + QStringLiteral(" didCreate"); }
    void objectPreparedForReuse(VXReusableObjectPool *, VXReusableObject *o) override { *m_log << name(o) + QStringLiteral(" prepared"); }
    void objectBecameReusable(VXReusableObjectPool *, VXReusableObject *o) override { *m_log << name(o) + QStringLiteral(" becameReusable"); }
    void didEvictReusableObject(VXReusableObjectPool *, VXReusableObject *o) override { *m_log << name(o) + QStringLiteral(" didEvict"); }

private:
    static QString name(VXReusableObject *o) { return static_cast<RowTile *>(o)->name; }
    QStringList *m_log;
};

std::unique_ptr<VXReusableObjectPool> makePool(QStringList *log, LoggingPoolDelegate *delegate)
{
    auto pool = std::make_unique<VXReusableObjectPool>();
    pool->setDelegate(delegate);
    auto counter = std::make_shared<int>(0);
    pool->registerReuseIdentifier(7, [log, counter] {
        auto tile = std::make_unique<RowTile>(log);
        tile->name = QString(QChar(u'A' + (*counter)++));
        return tile;
    });
    return pool;
}

// Hands out pooled row tiles, remembering the order of check-ins and check-outs.
class RowSource : public VXTileSource, public VXTilingControllerPreheatHandler {
public:
    QStringList log, poolLog;
    LoggingPoolDelegate poolDelegate{&poolLog};
    std::unique_ptr<VXReusableObjectPool> pool = makePool(&poolLog, &poolDelegate);
    QWidget *content = nullptr;
    QList<qint64> started, stopped;

    VXTile *checkOutTileForIdentifier(const VXTileIdentifier &identifier, VXTilingLayout *) override
    {
        auto *tile = static_cast<RowTile *>(pool->checkOutReusableObjectWithReuseIdentifier(7));
        tile->setParent(content);
        tile->row = qint64(identifier.indexes[1]);
        log << QStringLiteral("out %1").arg(tile->row);
        return tile;
    }
    void checkInTile(VXTile *tile, const VXTileIdentifier &identifier) override
    {
        log << QStringLiteral("in %1").arg(identifier.indexes[1]);
        pool->checkInReusableObject(static_cast<RowTile *>(tile));
    }
    void startPreheatingTilesForIdentifiers(const VXTileIdentifier *ids, const VXTileGeometry *geometries, qsizetype count, void *context) override
    {
        EXPECT_EQ(context, this);
        for (qsizetype i = 0; i < count; ++i) {
            EXPECT_EQ(geometries[i].frame.top(), 50.0 * double(ids[i].indexes[1]));
            started << qint64(ids[i].indexes[1]);
        }
    }
    void stopPreheatingTilesForIdentifiers(const VXTileIdentifier *ids, const VXTileGeometry *, qsizetype count, void *) override
    {
        for (qsizetype i = 0; i < count; ++i)
            stopped << qint64(ids[i].indexes[1]);
    }
};

} // namespace

TEST(ReusableObjectPool, TellsItsDelegateOfCreationCheckOutCheckInAndEvictionInOrder)
{
    QStringList log;
    LoggingPoolDelegate delegate(&log);
    auto pool = makePool(&log, &delegate);
    VXReusableObject *a = pool->checkOutReusableObjectWithReuseIdentifier(7);
    VXReusableObject *b = pool->checkOutReusableObjectWithReuseIdentifier(7);
    EXPECT_EQ(log, (QStringList{"A didCreate", "A prepareForReuse", "A prepared", "B didCreate", "B prepareForReuse", "B prepared"}));
    log.clear();
    pool->checkInReusableObject(a);
    EXPECT_EQ(log, (QStringList{"A becomeReusable", "A becameReusable"}));
    EXPECT_EQ(pool->numberOfReusableObjects(), 1);
    EXPECT_EQ(pool->numberOfObjectsInUse(), 1);
    log.clear();
    EXPECT_EQ(pool->checkOutReusableObjectWithReuseIdentifier(7), a) << "reused, not made anew";
    EXPECT_EQ(log, (QStringList{"A prepareForReuse", "A prepared"}));
    log.clear();
    pool->checkInReusableObject(b);
    pool->evictReusableObjects();
    EXPECT_EQ(log, (QStringList{"B becomeReusable", "B becameReusable", "B didEvict"}));
    log.clear();
    pool.reset();
    EXPECT_EQ(log, QStringList{"A didEvict"}) << "the pool owns what is checked out too";
}

TEST(ReusableObjectPoolDeathTest, UnknownIdentifiersAndForeignObjectsEndTheProcess)
{
    VXReusableObjectPool pool;
    EXPECT_DEATH(pool.checkOutReusableObjectWithReuseIdentifier(3), "no creation handler");
    QStringList log;
    RowTile stranger(&log);
    EXPECT_DEATH(pool.checkInReusableObject(&stranger), "not checked out");
}

struct TilingFixture : ::testing::Test {
    QWidget window;
    RowSource source;
    VXUIScrollViewController *scroll = nullptr;
    RowLayout *layout = new RowLayout(100);
    std::unique_ptr<VXTilingController> controller;
    VXBasicUIViewTileAnimator animator;

    void SetUp() override
    {
        window.resize(300, 500);
        scroll = new VXUIScrollViewController(QRectF(0, 0, 300, 500), &window);
        scroll->scrollView()->setParent(&window);
        source.content = scroll->scrollView()->contentView();
        controller = std::make_unique<VXTilingController>(std::unique_ptr<VXTilingLayout>(layout));
        controller->setTileSource(&source);
        controller->setScrollController(scroll);
        controller->setTileAnimator(&animator);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        controller->update();
    }
    void TearDown() override { controller.reset(); }
    RowTile *tileOf(qint64 row) const { return static_cast<RowTile *>(controller->tileForIdentifier(RowLayout::identifierOf(row))); }
};

TEST_F(TilingFixture, VisibleTilesAreCheckedOutPlacedAndReusedAsTheyScrollAway)
{
    EXPECT_EQ(scroll->scrollView()->contentSize(), QSizeF(300, 5000));
    EXPECT_EQ(controller->numberOfActiveTiles(), 10);
    for (qint64 row = 0; row < 10; ++row) {
        ASSERT_TRUE(tileOf(row));
        EXPECT_EQ(tileOf(row)->row, row);
        EXPECT_EQ(tileOf(row)->geometry(), QRect(0, int(50 * row), 300, 50));
        EXPECT_FALSE(tileOf(row)->isHidden());
    }
    EXPECT_EQ(tileOf(10), nullptr) << "a row that only touches the bottom edge is not visible";

    source.log.clear();
    const QSet<RowTile *> leaving{tileOf(0), tileOf(1)};
    scroll->scrollView()->setContentOffset(QPointF(0, 120));
    ASSERT_EQ(source.log.size(), 5);
    EXPECT_EQ(QSet<QString>(source.log.begin(), source.log.begin() + 2), (QSet<QString>{"in 0", "in 1"})) << "leaving before entering";
    EXPECT_EQ(source.log.mid(2), (QStringList{"out 10", "out 11", "out 12"}));
    EXPECT_EQ(controller->numberOfActiveTiles(), 11);
    EXPECT_EQ(source.pool->numberOfObjectsInUse() + source.pool->numberOfReusableObjects(), 11) << "two of three reused";
    EXPECT_EQ((QSet<RowTile *>{tileOf(10), tileOf(11)}), leaving);
    EXPECT_EQ(tileOf(10)->geometry(), QRect(0, 500, 300, 50));

    controller.reset();
    EXPECT_EQ(source.pool->numberOfObjectsInUse(), 0) << "a controller that goes checks its tiles in";
}

TEST_F(TilingFixture, PreheatHandlersHearOfTheirGroupWithinTheirPadding)
{
    controller->registerPreheatHandler(&source, {100, 0, 100, 0}, 0, &source);
    controller->update();
    // Visible 0-500 grown to -100..600: rows 0-11, of which the even ones are in group 0.
    EXPECT_EQ(source.started, (QList<qint64>{0, 2, 4, 6, 8, 10}));
    EXPECT_TRUE(source.stopped.isEmpty());
    source.started.clear();
    scroll->scrollView()->setContentOffset(QPointF(0, 400)); // -> 300..1000
    std::sort(source.started.begin(), source.started.end());
    std::sort(source.stopped.begin(), source.stopped.end());
    EXPECT_EQ(source.started, (QList<qint64>{12, 14, 16, 18}));
    EXPECT_EQ(source.stopped, (QList<qint64>{0, 2, 4}));
    EXPECT_EQ(controller->numberOfActiveTiles(), 10) << "preheating checks nothing out";
}

TEST_F(TilingFixture, ANewWidthPreparesTheLayoutAgainAndMovesEveryTile)
{
    const int passes = layout->passes;
    scroll->scrollView()->setContentOffset(QPointF(0, 100));
    EXPECT_EQ(layout->passes, passes) << "scrolling alone needs no pass";
    window.resize(200, 500);
    scroll->scrollView()->resize(200, 500);
    EXPECT_EQ(layout->passes, passes + 1);
    EXPECT_EQ(layout->referenceSize(), QSizeF(200, 500));
    EXPECT_EQ(tileOf(5)->geometry(), QRect(0, 250, 200, 50));
    EXPECT_EQ(scroll->scrollView()->contentSize(), QSizeF(200, 5000));
}
