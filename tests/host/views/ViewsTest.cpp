// The host's small views, drawn into images: what each state puts where, at the sizes and in the
// colours asked for, and the indeterminate ring turning only while it is shown.

#include <views/VUDurationBadgeView.h>
#include <views/VUFavoriteBadgeView.h>
#include <views/VUProgressRingView.h>
#include <views/VUSelectionMarkView.h>
#include <views/VUStirShotBadgeView.h>

#include "ui/DisplayLink.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <functional>

namespace {

// A grey canvas of `size` with one drawing on it.
QImage draw(QSize size, const std::function<void(QPainter &)> &paint)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(128, 128, 128));
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image;
}

bool near(QColor a, QColor b, int tolerance = 24)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance && std::abs(a.blue() - b.blue()) <= tolerance;
}

TEST(DurationBadgeTest, TextRoundsToTheSecondAndShowsHoursFromAnHourOn)
{
    const std::pair<double, const char *> cases[] = {
        {-3, "0:00"}, {0, "0:00"}, {4.4, "0:04"}, {59.5, "1:00"}, {62, "1:02"}, {3599.4, "59:59"}, {3599.5, "1:00:00"}, {3723, "1:02:03"},
        {36000, "10:00:00"},
    };
    for (const auto &[seconds, text] : cases)
        EXPECT_EQ(VUDurationBadgeView::textForDuration(seconds), QString::fromLatin1(text)) << seconds;
}

TEST(DurationBadgeTest, TextSitsBottomRightOverAShadeThatOnlyDarkens)
{
    const QSize cell(100, 100);
    const auto paint = [&](bool shade) {
        return draw(cell, [&](QPainter &p) { VUDurationBadgeView::paintDurationBadge(p, QRectF(QPointF(), cell), QStringLiteral("8:88"), Qt::yellow, 14, shade); });
    };
    const QImage shaded = paint(true), plain = paint(false);
    // The text is yellow and right-aligned at the bottom: none of it in the left half or the top.
    int yellowRight = 0, yellowElsewhere = 0;
    for (int y = 0; y < cell.height(); ++y)
        for (int x = 0; x < cell.width(); ++x)
            if (near(plain.pixelColor(x, y), Qt::yellow, 60))
                (x > 50 && y > 70 ? yellowRight : yellowElsewhere)++;
    EXPECT_GT(yellowRight, 20);
    EXPECT_EQ(yellowElsewhere, 0);
    // The shade darkens the bottom edge, fading out above it, and leaves the top alone.
    EXPECT_LT(shaded.pixelColor(10, 99).red(), 100);
    EXPECT_EQ(shaded.pixelColor(10, 10), QColor(128, 128, 128));
    EXPECT_EQ(plain.pixelColor(10, 99), QColor(128, 128, 128));
}

TEST(BadgeGlyphTest, FavoriteFillsItsHeartOnlyForAFavorite)
{
    const QRectF square(10, 10, 40, 40);
    const QImage on = draw({60, 60}, [&](QPainter &p) { VUFavoriteBadgeView::paintFavoriteBadge(p, square, Qt::red, true); });
    const QImage off = draw({60, 60}, [&](QPainter &p) { VUFavoriteBadgeView::paintFavoriteBadge(p, square, Qt::red, false); });
    // Inside the left lobe; the outline of the empty heart runs along its edge.
    EXPECT_TRUE(near(on.pixelColor(20, 25), Qt::red));
    EXPECT_EQ(off.pixelColor(20, 25), QColor(128, 128, 128));
    // Outside the heart, at the notch between the lobes, nothing.
    EXPECT_EQ(on.pixelColor(30, 12), QColor(128, 128, 128));
}

TEST(BadgeGlyphTest, StirShotMarkHasItsDotAndIsStruckThroughWhenOff)
{
    const QPointF centre(30, 30);
    const QImage on = draw({60, 60}, [&](QPainter &p) { VUStirShotBadgeView::paintStirShotBadge(p, centre, 32, Qt::white, false); });
    const QImage off = draw({60, 60}, [&](QPainter &p) { VUStirShotBadgeView::paintStirShotBadge(p, centre, 32, Qt::white, true); });
    EXPECT_TRUE(near(on.pixelColor(30, 30), Qt::white));
    // Between the inner ring (radius 10) and the dot (radius 4.4), on the diagonal: only the
    // slash of an Off mark is there.
    EXPECT_FALSE(near(on.pixelColor(25, 25), Qt::white, 40));
    EXPECT_TRUE(near(off.pixelColor(25, 25), Qt::white, 40));
}

TEST(BadgeGlyphTest, SelectionMarkFillsWithTheColourWhenSelectedAndDimsWhenUnavailable)
{
    const QRectF square(0, 0, 48, 48);
    const QImage selected = draw({48, 48}, [&](QPainter &p) { VUSelectionMarkView::paintSelectionMark(p, square, Qt::blue, true); });
    const QImage empty = draw({48, 48}, [&](QPainter &p) { VUSelectionMarkView::paintSelectionMark(p, square, Qt::blue, false); });
    const QImage dimmed = draw({48, 48}, [&](QPainter &p) { VUSelectionMarkView::paintSelectionMark(p, square, Qt::blue, true, false); });
    // Off the check, inside the disc.
    EXPECT_TRUE(near(selected.pixelColor(24, 10), Qt::blue));
    EXPECT_FALSE(near(empty.pixelColor(24, 10), Qt::blue, 60));
    // The ring is white when the mark is available; dimmed, it is closer to the background.
    EXPECT_TRUE(near(empty.pixelColor(24, 2), Qt::white, 40));
    EXPECT_LT(dimmed.pixelColor(24, 10).blue(), 200);
    EXPECT_GT(dimmed.pixelColor(24, 10).red(), 50);
}

// The determinate arc starts at twelve o'clock and goes clockwise: a quarter reaches three
// o'clock, never nine; progress beyond the ends is clamped.
TEST(ProgressRingTest, ArcGrowsClockwiseFromTheTopAndIsClamped)
{
    const QRectF ring(0, 0, 60, 60);
    const auto paint = [&](VUProgressRingView::State state, double progress) {
        return draw({60, 60}, [&](QPainter &p) { VUProgressRingView::paintProgressRing(p, ring, state, progress, Qt::red, 6); });
    };
    const auto onArc = [](const QImage &image, int x, int y) { return near(image.pixelColor(x, y), Qt::red, 40); };
    // Points on the ring: right after the top, at three, six and nine o'clock.
    const QImage quarter = paint(VUProgressRingView::State::Determinate, 0.3);
    EXPECT_TRUE(onArc(quarter, 36, 3));
    EXPECT_TRUE(onArc(quarter, 57, 30));
    EXPECT_FALSE(onArc(quarter, 30, 57));
    EXPECT_FALSE(onArc(quarter, 3, 30));
    const QImage none = paint(VUProgressRingView::State::Determinate, -1);
    EXPECT_FALSE(onArc(none, 36, 3));
    const QImage whole = paint(VUProgressRingView::State::Determinate, 7);
    for (const QPoint p : {QPoint(57, 30), QPoint(30, 57), QPoint(3, 30), QPoint(24, 3)})
        EXPECT_TRUE(onArc(whole, p.x(), p.y())) << p.x() << "," << p.y();
    const QImage done = paint(VUProgressRingView::State::Completed, 0);
    EXPECT_TRUE(onArc(done, 3, 30));
}

TEST(ProgressRingTest, IndeterminateRingTurnsOnlyWhileShown)
{
    ui::DisplayLink::ManualStepping frames(60);
    VUProgressRingView ring;
    ring.setState(VUProgressRingView::State::Indeterminate);
    frames.step(30);
    EXPECT_EQ(ring.phase(), 0) << "not shown yet";
    ring.resize(40, 40);
    ring.show();
    frames.step(31);
    // The first frame sets the start; thirty more are half a second, half a turn.
    EXPECT_NEAR(ring.phase(), 0.5 * VUProgressRingView::kSpinRate, 1e-9);
    ring.hide();
    frames.step(30);
    EXPECT_NEAR(ring.phase(), 0.5 * VUProgressRingView::kSpinRate, 1e-9);
    ring.show();
    ring.setState(VUProgressRingView::State::Determinate);
    frames.step(30);
    EXPECT_NEAR(ring.phase(), 0.5 * VUProgressRingView::kSpinRate, 1e-9);
}

TEST(BadgeViewTest, GlyphSizeSetsTheViewsSizeAndColourReachesThePixels)
{
    VUFavoriteBadgeView badge;
    badge.setGlyphSize(30);
    EXPECT_EQ(badge.sizeHint(), QSize(34, 34));
    badge.setColor(Qt::green);
    badge.resize(badge.sizeHint());
    const QImage shown = badge.grab().toImage();
    EXPECT_TRUE(near(shown.pixelColor(10, 12), Qt::green));

    VUDurationBadgeView duration;
    duration.setDuration(3723);
    const int hoursWidth = duration.sizeHint().width();
    duration.setDuration(5);
    EXPECT_LT(duration.sizeHint().width(), hoursWidth);
    duration.setGlyphSize(22);
    EXPECT_EQ(duration.sizeHint().height(), 48);
}

} // namespace
