// The intersection rule, the display-synchronised frame timer and autoresizing.

#include "ui/Autoresizing.h"
#include "ui/DisplayLink.h"
#include "ui/Geometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

TEST(Geometry, RectanglesIntersectOnlyWhenTheyOverlapInAnArea)
{
    const QRectF tile(0, 0, 10, 10);
    struct Case {
        QRectF other;
        bool intersects;
        const char *what;
    } cases[] = {
        {{5, 5, 10, 10}, true, "overlapping corner"},
        {{2, 2, 3, 3}, true, "contained"},
        {{10, 0, 10, 10}, false, "sharing the right edge"},
        {{0, 10, 10, 10}, false, "sharing the bottom edge"},
        {{-10, 0, 10, 10}, false, "sharing the left edge"},
        {{10, 10, 5, 5}, false, "sharing a corner only"},
        {{5, 0, 0, 10}, false, "zero width, inside"},
        {{9.999, 0, 10, 10}, true, "a sliver of overlap"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(ui::intersects(tile, c.other), c.intersects) << c.what;
        EXPECT_EQ(ui::intersects(c.other, tile), c.intersects) << c.what << " (swapped)";
    }
}

TEST(Geometry, InsetsAndRoundingHalfAwayFromZero)
{
    const ui::EdgeInsets insets{1, 2, 3, 4};
    EXPECT_EQ(ui::insetRect(QRectF(0, 0, 100, 50), insets), QRectF(2, 1, 94, 46));
    EXPECT_EQ(insets.horizontal(), 6);
    EXPECT_EQ(insets.vertical(), 4);
    EXPECT_EQ(ui::roundToPoint(2.5), 3);
    EXPECT_EQ(ui::roundToPoint(-2.5), -3);
    EXPECT_EQ(ui::roundToPoint(455.99), 456);
    EXPECT_EQ(ui::roundToPoint(0.49), 0);
}

TEST(DisplayLink, ManualSteppingFiresScheduledLinksOncePerFrameInOrder)
{
    ui::DisplayLink::ManualStepping frames(60);
    std::vector<std::pair<char, double>> log;
    ui::DisplayLink a([&](ui::DisplayLink &link) { log.push_back({'a', link.timestamp()}); });
    ui::DisplayLink b([&](ui::DisplayLink &link) { log.push_back({'b', link.timestamp()}); });
    frames.step();
    EXPECT_TRUE(log.empty()) << "links fire only once scheduled";

    a.schedule();
    b.schedule();
    const double start = frames.time();
    frames.step(2);
    ASSERT_EQ(log.size(), 4u);
    EXPECT_EQ(log[0].first, 'a');
    EXPECT_EQ(log[1].first, 'b');
    EXPECT_DOUBLE_EQ(log[0].second, start + 1.0 / 60);
    EXPECT_DOUBLE_EQ(log[1].second, log[0].second) << "one frame, one time stamp";
    EXPECT_DOUBLE_EQ(log[2].second, start + 2.0 / 60);
    EXPECT_DOUBLE_EQ(a.duration(), 1.0 / 60);
    EXPECT_DOUBLE_EQ(a.targetTimestamp(), a.timestamp() + 1.0 / 60);
    EXPECT_DOUBLE_EQ(ui::DisplayLink::currentTime(), frames.time());

    log.clear();
    a.setPaused(true);
    frames.step();
    EXPECT_EQ(log.size(), 1u) << "a paused link skips frames";
    a.setPaused(false);
    b.invalidate();
    b.schedule();
    frames.step();
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[1].first, 'a') << "an invalidated link never fires again";
    EXPECT_FALSE(b.isValid());
}

TEST(DisplayLink, HandlersMayInvalidateOrDeleteLinksDuringAFrame)
{
    ui::DisplayLink::ManualStepping frames;
    int secondFired = 0, selfFired = 0;
    auto second = std::make_unique<ui::DisplayLink>([&](ui::DisplayLink &) { ++secondFired; });
    ui::DisplayLink *self = nullptr;
    ui::DisplayLink first([&](ui::DisplayLink &) { second->invalidate(); });
    self = new ui::DisplayLink([&](ui::DisplayLink &) {
        ++selfFired;
        delete self;
    });
    first.schedule();
    second->schedule();
    self->schedule();
    frames.step(3);
    EXPECT_EQ(secondFired, 0) << "invalidated earlier in the same frame";
    EXPECT_EQ(selfFired, 1);
}

TEST(DisplayLink, TimerFramesFollowTheScreensRefreshIntervalOnAFixedGrid)
{
    const double rate = QGuiApplication::primaryScreen()->refreshRate();
    const double interval = 1.0 / (rate > 1 ? rate : 60);
    std::vector<double> stamps;
    ui::DisplayLink link([&](ui::DisplayLink &l) { stamps.push_back(l.timestamp()); });
    link.schedule();
    EXPECT_DOUBLE_EQ(link.duration(), interval);
    const double start = ui::DisplayLink::currentTime();
    QTest::qWait(200);
    const double elapsed = ui::DisplayLink::currentTime() - start;
    link.invalidate();
    ASSERT_GE(stamps.size(), 3u);
    EXPECT_LE(double(stamps.size()), elapsed / interval + 1) << "never faster than the display";
    for (size_t i = 1; i < stamps.size(); ++i) {
        const double frames = (stamps[i] - stamps[i - 1]) / interval;
        EXPECT_GE(frames, 0.999);
        EXPECT_NEAR(frames, std::round(frames), 1e-3) << "late ticks keep the grid";
    }
}

TEST(DisplayLink, WindowPacingFollowsUpdateRequestsWithoutOutrunningTheDisplay)
{
    ui::DisplayLink::setPacing(ui::DisplayLink::Pacing::WindowUpdates);
    QWidget window;
    window.resize(100, 100);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    std::vector<double> stamps;
    ui::DisplayLink link([&](ui::DisplayLink &l) { stamps.push_back(l.timestamp()); });
    link.schedule(&window);
    QTest::qWait(150);
    link.invalidate();
    ui::DisplayLink::setPacing(ui::DisplayLink::Pacing::Automatic);
    ASSERT_GE(stamps.size(), 3u);
    for (size_t i = 1; i < stamps.size(); ++i)
        EXPECT_GE(stamps[i] - stamps[i - 1], link.duration() * 0.5 - 1e-3);
}

TEST(Autoresizing, FlexibleDimensionsFollowTheParentEvenWhenResizedBeforeShowing)
{
    QWidget parent;
    parent.resize(640, 480);
    auto *filling = new QWidget(&parent);
    filling->setGeometry(0, 0, 640, 480);
    ui::setAutoresizingMask(filling, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    auto *bar = new QWidget(&parent);
    bar->setGeometry(10, 10, 620, 40);
    ui::setAutoresizingMask(bar, ui::Autoresizing::FlexibleWidth);
    parent.resize(390, 844); // no event until shown
    parent.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&parent));
    EXPECT_EQ(filling->geometry(), QRect(0, 0, 390, 844));
    EXPECT_EQ(bar->geometry(), QRect(10, 10, 370, 40)) << "keeps its margins, not its height";
    ui::setAutoresizingMask(bar, ui::Autoresizing::None);
    parent.resize(400, 844);
    EXPECT_EQ(bar->width(), 370);
    EXPECT_EQ(filling->width(), 400);
}
