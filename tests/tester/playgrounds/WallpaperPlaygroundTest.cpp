// The Live Wallpaper playground over a library of its own: the Stir Shot chosen by its place,
// its still from the image manager and its paired movie, what the screen says without one, and
// settings applied while it shows.

#include "PlaygroundFixture.h"
#include "QtPrinters.h"

#include "playgrounds/wallpaper/VUTesterLiveWallpaperPlaygroundViewController.h"

#include <wallpaper/VULiveWallpaperView.h>

#include <QTest>

#include <gtest/gtest.h>

using WallpaperPlayground = PlaygroundFixture;

TEST_F(WallpaperPlayground, TheChosenStirShotBecomesTheWallpaperAndSettingsApplyAsTheyChange)
{
    VUTesterLiveWallpaperSettings settings;
    settings.restoreDefaultValuesRecursively();
    auto *screen = new VUTesterLiveWallpaperPlaygroundViewController(&settings, library());
    show(screen);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(screen->problemText().startsWith(QStringLiteral("The library has no Stir Shots"))) << screen->problemText().toStdString();
    EXPECT_TRUE(screen->wallpaperView()->playerView()->posterImage().isNull());

    addVideos(1);
    addStirShot(1.0);
    settings.setStirShotIndex(1);
    ASSERT_TRUE(settle());
    EXPECT_EQ(screen->problemText(), QStringLiteral("There is no Stir Shot at 1: the library has 1."));

    settings.setStirShotIndex(0);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(screen->problemText().isEmpty());
    VULiveWallpaperView *wallpaper = screen->wallpaperView();
    // The still, red as written; its movie ready to play on a press.
    const QImage still = wallpaper->playerView()->posterImage();
    ASSERT_FALSE(still.isNull());
    EXPECT_GT(qRed(still.pixel(still.width() / 2, still.height() / 2)), 150);
    EXPECT_LT(qGreen(still.pixel(still.width() / 2, still.height() / 2)), 100);
    EXPECT_EQ(wallpaper->playerView()->player()->status(), VUMoviePlayer::Status::ReadyToPlay);
    EXPECT_EQ(wallpaper->playerView()->player()->presentationSize(), QSize(160, 96));
    QTest::mousePress(wallpaper, Qt::LeftButton, {}, QPoint(100, 300));
    EXPECT_TRUE(wallpaper->isPlayingMovie());
    QTest::mouseRelease(wallpaper, Qt::LeftButton, {}, QPoint(100, 300));

    settings.setMotionDepth(40);
    settings.setShowsClock(false);
    settings.setPlaysOnPress(false);
    EXPECT_DOUBLE_EQ(wallpaper->motionDepth(), 40);
    EXPECT_FALSE(wallpaper->isClockVisible());
    EXPECT_FALSE(wallpaper->playsOnPress());
}
