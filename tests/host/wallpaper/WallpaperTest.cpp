// The live wallpaper as a person uses it: the still under the clock, press and hold to play the
// movie from its start, back to the still on release or at the movie's end, and the parallax
// easing towards the pointer frame by frame.

#include "QtPrinters.h"
#include "TestMovies.h"

#include <wallpaper/VULiveWallpaperView.h>

#include "ui/DisplayLink.h"
#include "ui/Settle.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

using namespace std::chrono_literals;

namespace {

class WallpaperTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const QString movie = dir.filePath(QStringLiteral("numbered.mov"));
        QString error;
        ASSERT_TRUE(writeTestMovie(movie, TestMovie{}, &error)) << error.toStdString();
        QImage still(90, 160, QImage::Format_RGB32);
        still.fill(Qt::red);
        wallpaper.resize(390, 844);
        wallpaper.show();
        wallpaper.setStirShot(still, movie);
        settle();
    }
    static void settle()
    {
        QStringList pending;
        EXPECT_TRUE(ui::Settle::waitUntilSettled(10s, &pending, 0ms)) << pending.join(QStringLiteral(", ")).toStdString();
    }
    QColor centre() { return wallpaper.grab().toImage().pixelColor(195, 600); }
    VUMoviePlayer *player() const { return wallpaper.playerView()->player(); }
    // Display frames, each followed by the decoding it asked for.
    void step(int frames)
    {
        for (int i = 0; i < frames; ++i) {
            stepping.step();
            EXPECT_TRUE(QTest::qWaitFor([&] { return player()->framesBeingDecoded() == 0 && !player()->isSeeking(); }, 5000));
        }
    }

    QTemporaryDir dir;
    ui::DisplayLink::ManualStepping stepping{60};
    VULiveWallpaperView wallpaper;
};

} // namespace

TEST_F(WallpaperTest, PressAndHoldPlaysTheMovieFromItsStartAndLettingGoShowsTheStill)
{
    EXPECT_EQ(centre(), QColor(Qt::red));
    QSignalSpy started(&wallpaper, &VULiveWallpaperView::movieDidStart);
    QSignalSpy ended(&wallpaper, &VULiveWallpaperView::movieDidEnd);
    QTest::mousePress(&wallpaper, Qt::LeftButton, {}, QPoint(195, 600));
    EXPECT_TRUE(wallpaper.isPlayingMovie());
    settle();
    EXPECT_EQ(testMovieFrameIndex(wallpaper.grab().toImage().copy(0, 200, 390, 600)), 0);
    step(30);
    EXPECT_EQ(testMovieFrameIndex(player()->currentFrame()), 12);

    QTest::mouseRelease(&wallpaper, Qt::LeftButton, {}, QPoint(195, 600));
    EXPECT_FALSE(wallpaper.isPlayingMovie());
    EXPECT_FALSE(player()->isPlaying());
    EXPECT_EQ(centre(), QColor(Qt::red));

    // Held to the end, the movie gives way to the still by itself.
    QTest::mousePress(&wallpaper, Qt::LeftButton, {}, QPoint(195, 600));
    settle();
    EXPECT_EQ(testMovieFrameIndex(player()->currentFrame()), 0);
    step(125);
    EXPECT_FALSE(wallpaper.isPlayingMovie());
    EXPECT_EQ(centre(), QColor(Qt::red));
    EXPECT_EQ(started.count(), 2);
    EXPECT_EQ(ended.count(), 2);

    wallpaper.setPlaysOnPress(false);
    QTest::mousePress(&wallpaper, Qt::LeftButton, {}, QPoint(195, 600));
    EXPECT_FALSE(wallpaper.isPlayingMovie());
}

TEST_F(WallpaperTest, TheParallaxEasesAgainstThePointerWithinTheDepth)
{
    wallpaper.setMotionDepth(20);
    EXPECT_DOUBLE_EQ(wallpaper.parallaxScale(), 1 + 40.0 / 390);
    // The pointer at the right edge, halfway down: the picture goes left by the whole depth.
    QTest::mouseMove(&wallpaper, QPoint(390, 422));
    EXPECT_EQ(wallpaper.parallaxTarget(), QPointF(-20, 0));
    EXPECT_EQ(wallpaper.parallaxOffset(), QPointF());
    stepping.step();
    EXPECT_NEAR(wallpaper.parallaxOffset().x(), -20 * (1 - std::exp(-1 / 60.0 / VULiveWallpaperView::kParallaxTimeConstant)), 1e-9);
    stepping.step(60);
    EXPECT_EQ(wallpaper.parallaxOffset(), QPointF(-20, 0));
    EXPECT_EQ(wallpaper.playerView()->contentTransform(),
              QTransform::fromScale(wallpaper.parallaxScale(), wallpaper.parallaxScale()) * QTransform::fromTranslate(-20, 0));

    // A deeper setting moves it further for the same pointer; none keeps it still and unscaled.
    wallpaper.setMotionDepth(40);
    EXPECT_EQ(wallpaper.parallaxTarget(), QPointF(-40, 0));
    wallpaper.setMotionDepth(0);
    stepping.step(60);
    EXPECT_EQ(wallpaper.parallaxOffset(), QPointF());
    EXPECT_EQ(wallpaper.playerView()->contentTransform(), QTransform());
}

TEST_F(WallpaperTest, TheClockShowsTheTimeGivenOrTheLiveOne)
{
    wallpaper.setClockTime(QDateTime(QDate(2024, 5, 1), QTime(9, 41)));
    EXPECT_EQ(wallpaper.clockText(), QStringLiteral("9:41"));
    EXPECT_TRUE(wallpaper.dateText().contains(QStringLiteral("1"))) << wallpaper.dateText().toStdString();
    wallpaper.setClockTime(QDateTime());
    EXPECT_EQ(wallpaper.clockText(), QLocale().toString(QTime::currentTime(), QStringLiteral("H:mm")));
    EXPECT_TRUE(wallpaper.isClockVisible());
    wallpaper.setClockVisible(false);
    EXPECT_FALSE(wallpaper.isClockVisible());
}
