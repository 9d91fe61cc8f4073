// The scroll view, driven by synthetic touches and stepped frame by frame through the display
// link, so every offset below is what a user would see at that frame.

#include "ui/DisplayLink.h"
#include "ui/GestureRecognizer.h"
#include "ui/ScrollView.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>

namespace {

class RecordingDelegate : public ui::ScrollViewDelegate {
public:
    QStringList log;
    QWidget *zoomView = nullptr;
    double endedZoomScale = 0;
    int scrolls = 0;

    void didScroll(ui::ScrollView *) override { ++scrolls; }
    void willBeginDragging(ui::ScrollView *) override { log << QStringLiteral("willBeginDragging"); }
    void didEndDragging(ui::ScrollView *, bool decelerate) override
    {
        log << (decelerate ? QStringLiteral("didEndDragging decelerate") : QStringLiteral("didEndDragging"));
    }
    void didEndDecelerating(ui::ScrollView *) override { log << QStringLiteral("didEndDecelerating"); }
    void didEndScrollingAnimation(ui::ScrollView *) override { log << QStringLiteral("didEndScrollingAnimation"); }
    QWidget *viewForZooming(ui::ScrollView *) override { return zoomView; }
    void didEndZooming(ui::ScrollView *, QWidget *, double scale) override
    {
        log << QStringLiteral("didEndZooming");
        endedZoomScale = scale;
    }
};

struct ScrollViewFixture : ::testing::Test {
    ui::DisplayLink::ManualStepping frames{60};
    QWidget window;
    ui::ScrollView *scrollView = nullptr;
    RecordingDelegate delegate;
    double time = 0;

    void SetUp() override
    {
        window.resize(390, 844);
        scrollView = new ui::ScrollView(&window);
        scrollView->setGeometry(0, 0, 390, 844);
        scrollView->setDelegate(&delegate);
        scrollView->setContentSize(QSizeF(390, 2000));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { scrollView->setDelegate(nullptr); }

    // Drags one finger from `from` in `steps` moves of `step`, 10 ms apart, then lifts it after
    // `hold` seconds.
    void drag(QPointF from, QPointF step, int steps, double hold = 0)
    {
        QPointF at = from;
        ui::sendTouches(scrollView, ui::TouchPhase::Began, {{0, at}}, time);
        for (int i = 0; i < steps; ++i) {
            time += 0.01;
            at += step;
            ui::sendTouches(scrollView, ui::TouchPhase::Moved, {{0, at}}, time);
        }
        time += hold;
        ui::sendTouches(scrollView, ui::TouchPhase::Ended, {{0, at}}, time);
        time += 1;
    }
    // Steps frames until the content stops; returns how many it took.
    int settle(int limit = 1000)
    {
        int count = 0;
        while ((scrollView->isDecelerating() || scrollView->isZoomBouncing()) && count < limit) {
            frames.step();
            ++count;
        }
        return count;
    }
};

} // namespace

TEST_F(ScrollViewFixture, OffsetRangeFollowsInsetsAndShrinkingContentPullsTheOffsetBack)
{
    EXPECT_EQ(scrollView->minimumContentOffset(), QPointF(0, 0));
    EXPECT_EQ(scrollView->maximumContentOffset(), QPointF(0, 1156));
    scrollView->setContentInset({20, 0, 30, 0});
    EXPECT_EQ(scrollView->minimumContentOffset(), QPointF(0, -20));
    EXPECT_EQ(scrollView->maximumContentOffset(), QPointF(0, 1186));

    scrollView->setContentOffset(QPointF(0, 1100));
    EXPECT_EQ(scrollView->bounds(), QRectF(0, 1100, 390, 844));
    EXPECT_EQ(scrollView->contentView()->pos(), QPoint(0, -1100));
    scrollView->setContentSize(QSizeF(390, 1000));
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 186));

    scrollView->setContentOffset(QPointF(0, 5000));
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 5000)) << "code may scroll past the end";
    scrollView->setContentSize(QSizeF(390, 900));
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 5000)) << "an offset already out of range is left alone";
}

TEST_F(ScrollViewFixture, DragFollowsTheFingerRubberBandsPastTheTopAndSpringsBack)
{
    drag({200, 400}, {0, -10}, 11, 0.5);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 100)) << "the first 10 points only start the pan";
    EXPECT_EQ(delegate.log, (QStringList{QStringLiteral("willBeginDragging"), QStringLiteral("didEndDragging")}));
    EXPECT_FALSE(scrollView->isDecelerating()) << "held still before lifting";

    delegate.log.clear();
    ui::sendTouches(scrollView, ui::TouchPhase::Began, {{0, {200, 300}}}, time);
    ui::sendTouches(scrollView, ui::TouchPhase::Moved, {{0, {200, 310}}}, time + 0.01);
    ui::sendTouches(scrollView, ui::TouchPhase::Moved, {{0, {200, 720}}}, time + 0.02);
    // 410 points down from an offset of 100 asks for -310; the band gives less.
    const double band = (1 - 1 / (310 * 0.55 / 844 + 1)) * 844;
    EXPECT_NEAR(scrollView->contentOffset().y(), -band, 1e-9);
    EXPECT_TRUE(scrollView->isDragging());
    ui::sendTouches(scrollView, ui::TouchPhase::Ended, {{0, {200, 720}}}, time + 1.0);
    EXPECT_EQ(delegate.log.last(), QStringLiteral("didEndDragging decelerate"));

    double previous = scrollView->contentOffset().y();
    while (scrollView->isDecelerating()) {
        frames.step();
        const double y = scrollView->contentOffset().y();
        ASSERT_GE(y, previous) << "a spring from rest returns without overshooting";
        ASSERT_LE(y, 0);
        previous = y;
    }
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 0));
    EXPECT_EQ(delegate.log.last(), QStringLiteral("didEndDecelerating"));
}

TEST_F(ScrollViewFixture, FlingsDecelerateByTheRateAndStopAtTheEdgeWithOrWithoutBounce)
{
    scrollView->setContentSize(QSizeF(390, 20000));
    scrollView->setContentOffset(QPointF(0, 5000));
    scrollView->flingWithVelocity(QPointF(0, 1000));
    EXPECT_TRUE(scrollView->isDecelerating());
    const int used = settle();
    // v(t) = 1000 * 0.998^ms: it falls under 10 points per second after ln(100) / -ln(0.998) ms,
    // having covered (1000 - 10) / (1000 * -ln 0.998) points.
    EXPECT_NEAR(scrollView->contentOffset().y() - 5000, 990 / (1000 * -std::log(0.998)), 0.5);
    EXPECT_NEAR(used, std::log(100) / -std::log(0.998) / 1000 * 60, 2);
    EXPECT_EQ(delegate.log.last(), QStringLiteral("didEndDecelerating"));

    // A drag released while moving flings the same way.
    delegate.log.clear();
    drag({200, 600}, {0, -20}, 10);
    EXPECT_EQ(delegate.log.last(), QStringLiteral("didEndDragging decelerate"));
    EXPECT_GT(settle(), 60);

    const double end = scrollView->maximumContentOffset().y();
    scrollView->setContentOffset(QPointF(0, end - 100));
    scrollView->flingWithVelocity(QPointF(0, 3000));
    double furthest = 0;
    for (int i = 0; i < 1000 && scrollView->isDecelerating(); ++i) {
        frames.step();
        furthest = std::max(furthest, scrollView->contentOffset().y());
    }
    EXPECT_GT(furthest, end + 20) << "it bounces past the end";
    EXPECT_EQ(scrollView->contentOffset().y(), end) << "and settles exactly on it";

    scrollView->setBounces(false);
    scrollView->setContentOffset(QPointF(0, end - 100));
    scrollView->flingWithVelocity(QPointF(0, 3000));
    furthest = 0;
    for (int i = 0; i < 1000 && scrollView->isDecelerating(); ++i) {
        frames.step();
        furthest = std::max(furthest, scrollView->contentOffset().y());
    }
    EXPECT_EQ(furthest, end);
    EXPECT_EQ(scrollView->contentOffset().y(), end);
}

TEST_F(ScrollViewFixture, PagingSettlesOnWholePagesAndTurnsAtMostOnePage)
{
    scrollView->setContentSize(QSizeF(390 * 5, 844));
    scrollView->setPagingEnabled(true);
    drag({300, 400}, {-10, 0}, 11, 0.5); // 100 points, slowly
    settle();
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 0));
    drag({300, 400}, {-10, 0}, 26, 0.5); // 250 points: past the middle
    settle();
    EXPECT_EQ(scrollView->contentOffset(), QPointF(390, 0));
    drag({300, 400}, {-10, 0}, 5); // a short flick
    settle();
    EXPECT_EQ(scrollView->contentOffset(), QPointF(780, 0));
    drag({300, 400}, {-100, 0}, 3); // a violent one
    double furthest = 0;
    for (int i = 0; i < 1000 && scrollView->isDecelerating(); ++i) {
        frames.step();
        furthest = std::max(furthest, scrollView->contentOffset().x());
    }
    EXPECT_EQ(scrollView->contentOffset(), QPointF(1170, 0));
    EXPECT_LE(furthest, 1170) << "pages do not overshoot";
    drag({100, 400}, {10, 0}, 26, 0.5); // back
    settle();
    EXPECT_EQ(scrollView->contentOffset(), QPointF(780, 0));
}

TEST_F(ScrollViewFixture, AnimatedOffsetsEaseToTheTargetAndATouchCatchesMovingContent)
{
    scrollView->setContentOffset(QPointF(0, 600), true);
    frames.step();
    EXPECT_GT(scrollView->contentOffset().y(), 0);
    EXPECT_LT(scrollView->contentOffset().y(), 60) << "eases in";
    frames.step(17);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 600)) << "there after 0.3 s";
    EXPECT_EQ(delegate.log, QStringList{QStringLiteral("didEndScrollingAnimation")});

    scrollView->flingWithVelocity(QPointF(0, -2000));
    frames.step(5);
    const QPointF caught = scrollView->contentOffset();
    ui::sendTouches(scrollView, ui::TouchPhase::Began, {{0, {100, 100}}}, time);
    EXPECT_FALSE(scrollView->isDecelerating());
    EXPECT_TRUE(scrollView->isTracking());
    EXPECT_TRUE(scrollView->touchStoppedScrolling());
    frames.step(10);
    EXPECT_EQ(scrollView->contentOffset(), caught);
    ui::sendTouches(scrollView, ui::TouchPhase::Ended, {{0, {100, 100}}}, time + 0.1);
    EXPECT_FALSE(scrollView->isTracking());
    EXPECT_FALSE(scrollView->isDecelerating()) << "caught inside the range: it stays";

    scrollView->scrollRectToVisible(QRectF(0, 1900, 100, 50), false);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 1950 - 844));
    scrollView->scrollRectToVisible(QRectF(0, 10, 100, 50), false);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 10));
}

TEST_F(ScrollViewFixture, ZoomIsClampedAnchoredAndBouncesBackFromAPinch)
{
    auto *picture = new QWidget(scrollView->contentView());
    picture->resize(400, 1000);
    delegate.zoomView = picture;
    scrollView->setContentSize(QSizeF(400, 1000));
    scrollView->setMinimumZoomScale(0.5);
    scrollView->setMaximumZoomScale(4);

    scrollView->setZoomScale(10);
    EXPECT_EQ(scrollView->zoomScale(), 4);
    EXPECT_EQ(picture->size(), QSize(1600, 4000));
    EXPECT_EQ(scrollView->contentSize(), QSizeF(1600, 4000));
    scrollView->setZoomScale(0.1);
    EXPECT_EQ(scrollView->zoomScale(), 0.5);
    EXPECT_EQ(picture->size(), QSize(200, 500));

    scrollView->setZoomScale(1);
    scrollView->setContentOffset(QPointF());
    // Four notches of a quarter octave: twice the size, about the pointer at (100, 100).
    QWheelEvent wheel(QPointF(100, 100), scrollView->mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, 480), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(scrollView, &wheel);
    EXPECT_DOUBLE_EQ(scrollView->zoomScale(), 2);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(100, 100)) << "the point under the pointer stays under it";
    EXPECT_EQ(delegate.log.last(), QStringLiteral("didEndZooming"));

    scrollView->zoomToRect(QRectF(100, 100, 200, 150), false);
    EXPECT_DOUBLE_EQ(scrollView->zoomScale(), 1.95);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(195, 0)) << "centred, then kept in range";

    scrollView->setZoomScale(1);
    ui::sendTouches(scrollView, ui::TouchPhase::Began, {{0, {150, 400}}, {1, {250, 400}}}, time);
    ui::sendTouches(scrollView, ui::TouchPhase::Moved, {{0, {-200, 400}}, {1, {600, 400}}}, time + 0.05);
    EXPECT_TRUE(scrollView->isZooming());
    EXPECT_NEAR(scrollView->zoomScale(), 4 * std::sqrt(2.0), 1e-9) << "8x asked, past the limit with resistance";
    ui::sendTouches(scrollView, ui::TouchPhase::Ended, {{0, {-200, 400}}, {1, {600, 400}}}, time + 0.1);
    EXPECT_TRUE(scrollView->isZoomBouncing());
    settle();
    EXPECT_EQ(scrollView->zoomScale(), 4);
    EXPECT_EQ(picture->size(), QSize(1600, 4000));
    EXPECT_EQ(delegate.endedZoomScale, 4);
    const QPointF offset = scrollView->contentOffset(), max = scrollView->maximumContentOffset();
    EXPECT_TRUE(offset.x() >= 0 && offset.x() <= max.x() && offset.y() >= 0 && offset.y() <= max.y()) << "ends in range";
}

TEST_F(ScrollViewFixture, WheelScrollsByLinesAndStopsAtTheEdges)
{
    QWheelEvent down(QPointF(100, 100), scrollView->mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(scrollView, &down);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 60));
    EXPECT_TRUE(scrollView->isDragging());
    QWheelEvent up(QPointF(100, 100), scrollView->mapToGlobal(QPointF(100, 100)), QPoint(), QPoint(0, 600), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(scrollView, &up);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 0)) << "wheels do not pull past the top";
    QApplication::sendEvent(scrollView, &down);
    EXPECT_EQ(scrollView->contentOffset(), QPointF(0, 60)) << "and the surplus is not owed back";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !scrollView->isDragging(); }, 2000));
    EXPECT_FALSE(scrollView->isDecelerating());
}

namespace {

// Keeps its indicators once shown, as a baseline that measures their drawing does.
class StickyIndicatorsScrollView : public ui::ScrollView {
protected:
    void hideScrollIndicators() override {}
};

} // namespace

TEST_F(ScrollViewFixture, IndicatorsShowForScrollableDirectionsAndHideAfterAMomentUnlessKept)
{
    EXPECT_TRUE(scrollView->verticalScrollIndicator()->isHidden());
    scrollView->flashScrollIndicators();
    EXPECT_FALSE(scrollView->verticalScrollIndicator()->isHidden());
    EXPECT_TRUE(scrollView->horizontalScrollIndicator()->isHidden()) << "nothing to scroll sideways";
    const QRect bar = scrollView->verticalScrollIndicator()->geometry();
    EXPECT_GT(bar.left(), 380);
    EXPECT_NEAR(bar.height(), (844 - 5) * 844 / 2000.0, 1) << "as long as the visible share of the content";
    EXPECT_TRUE(QTest::qWaitFor([&] { return scrollView->verticalScrollIndicator()->isHidden(); }, 2000));

    scrollView->setContentOffset(QPointF(0, 1156));
    EXPECT_NEAR(scrollView->verticalScrollIndicator()->geometry().bottom(), 844 - 2.5, 2) << "at the end of its track";

    StickyIndicatorsScrollView sticky;
    sticky.resize(390, 844);
    sticky.setContentSize(QSizeF(390, 10000));
    sticky.flashScrollIndicators();
    QTest::qWait(700);
    EXPECT_FALSE(sticky.verticalScrollIndicator()->isHidden());
}
