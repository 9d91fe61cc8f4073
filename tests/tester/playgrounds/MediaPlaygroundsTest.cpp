// The media playground screens as an engineer uses them, in a phone-sized window under the
// offscreen platform: the movie each plays (the test pattern or the library's), the buttons that
// work it, and settings changed while the screen shows.

#include "PlaygroundFixture.h"
#include "QtPrinters.h"

#include "playgrounds/overlay/VUTesterVideoOverlayButtonPlaygroundViewController.h"
#include "playgrounds/scrubber/VUTesterVideoScrubberPlaygroundViewController.h"

#include <overlay/VUVideoOverlayButton.h>
#include <player/VUMoviePlayerView.h>
#include <scrubber/VUVideoScrubber.h>

#include <QTest>

#include <gtest/gtest.h>

using MediaPlaygrounds = PlaygroundFixture;

TEST_F(MediaPlaygrounds, VideoScrubberPlaysTheTestPatternAndFollowsItsSettings)
{
    VUTesterVideoScrubberSettings settings;
    settings.restoreDefaultValuesRecursively();
    settings.setTestMovieSize(VUTesterVideoScrubberSettings::TestMovieSizeSmall);
    settings.setTestMovieDuration(2);
    auto *screen = new VUTesterVideoScrubberPlaygroundViewController(&settings);
    show(screen);
    EXPECT_EQ(screen->playButton()->mode(), VUVideoOverlayButton::Mode::Loading);
    ASSERT_TRUE(settle());
    VUMoviePlayer *player = screen->playerView()->player();
    ASSERT_EQ(player->status(), VUMoviePlayer::Status::ReadyToPlay) << player->error().toStdString();
    EXPECT_EQ(player->presentationSize(), QSize(384, 216));
    EXPECT_TRUE(player->isLooping());
    EXPECT_TRUE(screen->statusText().startsWith(QStringLiteral("Test pattern: 384 × 216, 24 fps"))) << screen->statusText().toStdString();
    EXPECT_EQ(screen->scrubber()->loadedThumbnailCount(), screen->scrubber()->thumbnailTimes().size());
    EXPECT_GT(screen->scrubber()->loadedThumbnailCount(), 2);
    EXPECT_TRUE(screen->scrubber()->showsKeyFrames());

    QTest::mouseClick(screen->playButton(), Qt::LeftButton);
    EXPECT_TRUE(player->isPlaying());
    EXPECT_EQ(screen->playButton()->mode(), VUVideoOverlayButton::Mode::Pause);
    settings.setPlaybackRate(2);
    settings.setLoops(false);
    settings.setScrubbingTolerance(VUTesterVideoScrubberSettings::ScrubbingToleranceKeyFrame);
    EXPECT_DOUBLE_EQ(player->rate(), 2);
    EXPECT_FALSE(player->isLooping());
    EXPECT_EQ(screen->scrubber()->seekTolerance(), VUMoviePlayer::SeekTolerance::KeyFrame);
    QTest::mouseClick(screen->playButton(), Qt::LeftButton);
    EXPECT_FALSE(player->isPlaying());
    EXPECT_EQ(screen->playButton()->mode(), VUVideoOverlayButton::Mode::Play);
}

TEST_F(MediaPlaygrounds, VideoScrubberSaysWhenTheLibraryHasNoVideoAndPlaysOneOnceItHas)
{
    VUTesterVideoScrubberSettings settings;
    settings.restoreDefaultValuesRecursively();
    settings.setMovieSource(VUTesterVideoScrubberSettings::MovieSourceLibrary);
    auto *screen = new VUTesterVideoScrubberPlaygroundViewController(&settings, library());
    show(screen);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(screen->statusText().contains(QStringLiteral("no videos"))) << screen->statusText().toStdString();
    EXPECT_FALSE(screen->playButton()->isEnabled());

    addVideos(2);
    settings.setLibraryVideoIndex(1);
    ASSERT_TRUE(settle());
    VUMoviePlayer *player = screen->playerView()->player();
    ASSERT_EQ(player->status(), VUMoviePlayer::Status::ReadyToPlay) << player->error().toStdString();
    EXPECT_TRUE(screen->statusText().startsWith(QStringLiteral("Library video 1:"))) << screen->statusText().toStdString();
    EXPECT_TRUE(screen->playButton()->isEnabled());
    settings.setLibraryVideoIndex(2);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(screen->statusText().startsWith(QStringLiteral("There is no video at 2: the library has 2."))) << screen->statusText().toStdString();
}

TEST_F(MediaPlaygrounds, VideoOverlayButtonShowsEveryStyleAndStateAndItsLiveButtonWorks)
{
    VUTesterVideoOverlayButtonSettings settings;
    settings.restoreDefaultValuesRecursively();
    auto *screen = new VUTesterVideoOverlayButtonPlaygroundViewController(&settings);
    show(screen);
    // Four styles by four states, over each of two pictures.
    ASSERT_EQ(screen->matrixButtons().size(), 32);
    int loading = 0, disabled = 0;
    for (const VUVideoOverlayButton *button : screen->matrixButtons()) {
        loading += button->mode() == VUVideoOverlayButton::Mode::Loading;
        disabled += !button->isEnabled();
        EXPECT_EQ(button->diameter(), 48);
    }
    EXPECT_EQ(loading, 8);
    EXPECT_EQ(disabled, 8);

    ASSERT_TRUE(settle());
    VUMoviePlayer *player = screen->liveVideo()->player();
    ASSERT_EQ(player->status(), VUMoviePlayer::Status::ReadyToPlay);
    EXPECT_EQ(screen->liveButton()->mode(), VUVideoOverlayButton::Mode::Play);
    QTest::mouseClick(screen->liveButton(), Qt::LeftButton);
    EXPECT_TRUE(player->isPlaying());
    EXPECT_EQ(screen->liveButton()->mode(), VUVideoOverlayButton::Mode::Pause);

    settings.setShowsLiveVideo(false);
    settings.setPictures(VUTesterVideoOverlayButtonSettings::PicturesDark);
    settings.setButtonSize(qint64(VUVideoOverlayButton::Size::Large));
    EXPECT_EQ(screen->liveVideo(), nullptr);
    ASSERT_EQ(screen->matrixButtons().size(), 16);
    EXPECT_EQ(screen->matrixButtons().first()->diameter(), 76);
}
