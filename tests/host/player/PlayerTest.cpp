// The movie player as its users rely on it: what it shows after loading and seeking, where the
// clock and the picture are after frames of the display at each rate, the end of the range,
// loops and hints, seeks that overtake one another, the view's picture and poster, and filmstrip
// pictures. The display is stepped by hand, so every frame is deterministic.

#include "QtPrinters.h"
#include "TestMovies.h"

#include <player/VUMoviePlayer.h>
#include <player/VUMoviePlayerView.h>
#include <player/VUMovieThumbnailGenerator.h>

#include "ui/DisplayLink.h"
#include "ui/Settle.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// 48 pictures at 24 per second (2 s), a key frame every 12; picture i shows grey level i.
class PlayerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QString error;
        ASSERT_TRUE(writeTestMovie(path(), TestMovie{}, &error)) << error.toStdString();
    }
    QString path() const { return dir.filePath(QStringLiteral("numbered.mov")); }

    // Loads the movie and waits for its first picture.
    void load(VUMoviePlayer &player)
    {
        player.setMovie(path());
        ASSERT_TRUE(settle());
        ASSERT_EQ(player.status(), VUMoviePlayer::Status::ReadyToPlay) << player.error().toStdString();
    }
    static bool settle()
    {
        QStringList pending;
        const bool settled = ui::Settle::waitUntilSettled(10s, &pending, 0ms);
        EXPECT_TRUE(settled) << pending.join(QStringLiteral(", ")).toStdString();
        return settled;
    }
    // Display frames one at a time, each followed by the decoding it asked for, as a fast
    // machine would have it.
    void step(VUMoviePlayer &player, int frames)
    {
        for (int i = 0; i < frames; ++i) {
            stepping.step();
            EXPECT_TRUE(QTest::qWaitFor([&] { return player.framesBeingDecoded() == 0 && !player.isSeeking(); }, 5000));
        }
    }
    static int shown(const VUMoviePlayer &player) { return testMovieFrameIndex(player.currentFrame()); }

    QTemporaryDir dir;
    ui::DisplayLink::ManualStepping stepping{60};
};

} // namespace

TEST_F(PlayerTest, LoadingShowsTheFirstPictureAndTellsWhatTheMovieIs)
{
    VUMoviePlayer player;
    QSignalSpy status(&player, &VUMoviePlayer::statusChanged);
    player.setMovie(path());
    EXPECT_EQ(player.status(), VUMoviePlayer::Status::Loading);
    EXPECT_GT(ui::Settle::pendingCount(), 0);
    ASSERT_TRUE(settle());
    EXPECT_EQ(status.count(), 2);
    EXPECT_EQ(player.status(), VUMoviePlayer::Status::ReadyToPlay);
    EXPECT_DOUBLE_EQ(player.duration(), 2.0);
    EXPECT_DOUBLE_EQ(player.nominalFrameRate(), 24.0);
    EXPECT_EQ(player.presentationSize(), QSize(160, 96));
    EXPECT_EQ(player.keyFrameTimes(), (QList<double>{0.0, 0.5, 1.0, 1.5}));
    EXPECT_EQ(shown(player), 0);
    EXPECT_FALSE(player.isPlaying());

    VUMoviePlayer broken;
    broken.setMovie(dir.filePath(QStringLiteral("missing.mov")));
    broken.play();
    ASSERT_TRUE(settle());
    EXPECT_EQ(broken.status(), VUMoviePlayer::Status::Failed);
    EXPECT_FALSE(broken.isPlaying());
    EXPECT_TRUE(broken.error().contains(QStringLiteral("missing.mov")));
    EXPECT_TRUE(broken.currentFrame().isNull());
    bool finished = true;
    broken.seekToTime(1, [&](bool f) { finished = f; });
    EXPECT_FALSE(finished);
}

TEST_F(PlayerTest, TheClockFollowsTheDisplayAtEveryRate)
{
    VUMoviePlayer player;
    load(player);
    player.play();
    step(player, 60);
    EXPECT_NEAR(player.currentTime(), 1.0, 1e-9);
    EXPECT_EQ(shown(player), 24);
    // Every picture of the first second, each once: 24 on top of the first.
    EXPECT_EQ(player.presentedFrameCount(), 25);
    EXPECT_EQ(player.droppedFrameCount(), 0);

    player.setRate(2);
    step(player, 15);
    EXPECT_NEAR(player.currentTime(), 1.5, 1e-9);
    EXPECT_EQ(shown(player), 36);
    EXPECT_EQ(player.droppedFrameCount(), 0);

    // Four times 24 pictures a second cannot all be shown 60 times a second.
    player.seekToTime(0);
    ASSERT_TRUE(settle());
    player.setRate(4);
    step(player, 6);
    EXPECT_NEAR(player.currentTime(), 0.4, 1e-9);
    EXPECT_NEAR(player.currentFrameTime(), 0.375, 1e-9);
    EXPECT_GT(player.droppedFrameCount(), 0);

    player.pause();
    step(player, 10);
    EXPECT_NEAR(player.currentTime(), 0.4, 1e-9);
}

TEST_F(PlayerTest, PlaybackEndsAtTheEndOfTheRangeAndPlayStartsItAgain)
{
    VUMoviePlayer player;
    load(player);
    QSignalSpy ended(&player, &VUMoviePlayer::didPlayToEnd);
    player.seekToTime(1.8);
    player.play();
    step(player, 30);
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(player.isPlaying());
    EXPECT_DOUBLE_EQ(player.currentTime(), 2.0);
    EXPECT_EQ(shown(player), 47);

    player.play();
    ASSERT_TRUE(settle());
    EXPECT_EQ(shown(player), 0);
    EXPECT_TRUE(player.isPlaying());
}

TEST_F(PlayerTest, ALoopingRangeWrapsAroundWithoutStopping)
{
    VUMoviePlayer player;
    load(player);
    QSignalSpy ended(&player, &VUMoviePlayer::didPlayToEnd);
    player.setLooping(true);
    player.setPlaybackRange(0.5, 1.0);
    ASSERT_TRUE(settle());
    // The clock was at 0, before the range: it moved to the range's start.
    EXPECT_DOUBLE_EQ(player.currentTime(), 0.5);
    EXPECT_EQ(shown(player), 12);

    player.seekToTime(0.9);
    player.play();
    ASSERT_TRUE(settle());
    step(player, 12);
    // 0.9 + 0.2 wraps to 0.6: picture 14 of the second pass.
    EXPECT_NEAR(player.currentTime(), 0.6, 1e-9);
    EXPECT_EQ(shown(player), 14);
    step(player, 120);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_TRUE(player.isPlaying());
    EXPECT_GE(player.currentFrameTime(), 0.5);
    EXPECT_LT(player.currentFrameTime(), 1.0);

    // Turning the loop off mid-pass ends playback at the range's end.
    player.setLooping(false);
    step(player, 40);
    EXPECT_EQ(ended.count(), 1);
    EXPECT_EQ(shown(player), 23);
}

TEST_F(PlayerTest, AHintPlaysItsRangeOnceAndPausesAtItsEnd)
{
    VUMoviePlayer player;
    load(player);
    player.setLooping(true);
    QSignalSpy ended(&player, &VUMoviePlayer::didPlayToEnd);
    QList<int> pictures;
    QObject::connect(&player, &VUMoviePlayer::currentFrameChanged, [&] { pictures.append(shown(player)); });
    player.playRange(1.0, 1.25);
    ASSERT_TRUE(settle());
    step(player, 30);
    EXPECT_EQ(pictures, (QList<int>{24, 25, 26, 27, 28, 29}));
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(player.isLooping());
    EXPECT_FALSE(player.isPlaying());
    EXPECT_DOUBLE_EQ(player.currentTime(), 1.25);
    EXPECT_DOUBLE_EQ(player.playbackRangeStart(), 1.0);
    EXPECT_DOUBLE_EQ(player.playbackRangeEnd(), 1.25);
}

TEST_F(PlayerTest, SeeksOvertakeOneAnotherAndOnlyTheLastCompletes)
{
    VUMoviePlayer player;
    player.setMovie(path());
    // Asked for while loading: the first picture shown is already the one at 1 s.
    QList<bool> outcomes;
    player.seekToTime(1.0, [&](bool finished) { outcomes.append(finished); });
    ASSERT_TRUE(settle());
    EXPECT_EQ(outcomes, QList<bool>{true});
    EXPECT_EQ(shown(player), 24);
    EXPECT_EQ(player.presentedFrameCount(), 1);

    outcomes.clear();
    for (double time : {0.2, 0.6, 1.1, 1.7})
        player.seekToTime(time, [&](bool finished) { outcomes.append(finished); });
    EXPECT_DOUBLE_EQ(player.currentTime(), 1.7);
    ASSERT_TRUE(settle());
    EXPECT_EQ(outcomes, (QList<bool>{false, false, false, true}));
    EXPECT_EQ(shown(player), 40);
    // The one already decoding may show on the way; the two in between never are.
    EXPECT_LE(player.presentedFrameCount(), 3);

    // Times outside the movie are kept to it; coarse seeks land on key frames.
    player.seekToTime(7);
    ASSERT_TRUE(settle());
    EXPECT_EQ(shown(player), 47);
    player.seekToTime(1.3, VUMoviePlayer::SeekTolerance::KeyFrame);
    ASSERT_TRUE(settle());
    EXPECT_EQ(shown(player), 24);
    EXPECT_DOUBLE_EQ(player.currentTime(), 1.3);
}

TEST_F(PlayerTest, TheViewFitsThePictureAndShowsThePosterWhenAsked)
{
    VUMoviePlayerView view;
    view.resize(200, 200);
    QImage poster(40, 40, QImage::Format_RGB32);
    poster.fill(Qt::red);
    view.setPosterImage(poster);
    view.show();
    // Before the first picture, the poster stands in.
    EXPECT_TRUE(view.isShowingPoster());
    view.player()->setMovie(path());
    ASSERT_TRUE(settle());
    EXPECT_FALSE(view.isShowingPoster());
    EXPECT_EQ(view.contentRect(QSizeF(160, 96)), QRectF(0, 40, 200, 120));
    // Decoded at the size shown, never more than the movie's own.
    EXPECT_EQ(view.player()->maximumFrameSize(), (QSizeF(200, 120) * view.devicePixelRatioF()).toSize());
    EXPECT_EQ(view.player()->currentFrame().size(), QSize(160, 96));

    view.player()->seekToTime(0.5);
    ASSERT_TRUE(settle());
    QImage picture = view.grab().toImage();
    EXPECT_EQ(QColor(picture.pixel(100, 20)), QColor(Qt::black));
    EXPECT_EQ(testMovieFrameIndex(picture), 12);

    view.setShowsPoster(true);
    picture = view.grab().toImage();
    EXPECT_EQ(QColor(picture.pixel(100, 100)), QColor(Qt::red));

    view.setShowsPoster(false);
    view.setContentMode(VUMoviePlayerView::ContentMode::AspectFill);
    EXPECT_EQ(view.contentRect(QSizeF(160, 96)), QRectF(-(1000.0 / 3 - 200) / 2, 0, 1000.0 / 3, 200));
    picture = view.grab().toImage();
    EXPECT_EQ(testMovieFrameIndex(picture.copy(0, 0, 200, 20)), 12);
}

TEST_F(PlayerTest, FilmstripPicturesComeInOrderAndStopWhenCancelled)
{
    VUMovieThumbnailGenerator generator(path());
    generator.setMaximumSize(QSize(40, 40));
    QList<VUMovieThumbnailGenerator::Thumbnail> thumbnails;
    generator.generateThumbnails({0, 0.5, 1.0, 1.5, 1.99}, [&](const auto &thumbnail) { thumbnails.append(thumbnail); });
    EXPECT_EQ(generator.pendingRequestCount(), 1);
    ASSERT_TRUE(settle());
    EXPECT_EQ(generator.pendingRequestCount(), 0);
    QList<int> indexes;
    for (const auto &thumbnail : thumbnails) {
        indexes.append(testMovieFrameIndex(thumbnail.image));
        EXPECT_EQ(thumbnail.image.size(), QSize(40, 24));
        EXPECT_TRUE(thumbnail.error.isEmpty());
    }
    EXPECT_EQ(indexes, (QList<int>{0, 12, 24, 36, 47}));
    EXPECT_DOUBLE_EQ(thumbnails.back().requestedTime, 1.99);
    EXPECT_DOUBLE_EQ(thumbnails.back().actualTime, 47 / 24.0);

    thumbnails.clear();
    generator.setTolerance(VUMoviePlayer::SeekTolerance::KeyFrame);
    generator.generateThumbnails({0.4, 1.4}, [&](const auto &thumbnail) { thumbnails.append(thumbnail); });
    ASSERT_TRUE(settle());
    ASSERT_EQ(thumbnails.size(), 2);
    EXPECT_EQ(testMovieFrameIndex(thumbnails[0].image), 0);
    EXPECT_EQ(testMovieFrameIndex(thumbnails[1].image), 24);

    thumbnails.clear();
    QList<double> many;
    for (int i = 0; i < 48; ++i)
        many.append(i / 24.0);
    generator.generateThumbnails(many, [&](const auto &thumbnail) { thumbnails.append(thumbnail); });
    generator.cancelAllRequests();
    EXPECT_EQ(generator.pendingRequestCount(), 0);
    QTest::qWait(200);
    EXPECT_TRUE(thumbnails.isEmpty());

    VUMovieThumbnailGenerator missing(dir.filePath(QStringLiteral("missing.mov")));
    missing.generateThumbnails({0, 1}, [&](const auto &thumbnail) { thumbnails.append(thumbnail); });
    ASSERT_TRUE(settle());
    ASSERT_EQ(thumbnails.size(), 2);
    EXPECT_TRUE(thumbnails[0].image.isNull());
    EXPECT_TRUE(thumbnails[1].error.contains(QStringLiteral("missing.mov")));
}
