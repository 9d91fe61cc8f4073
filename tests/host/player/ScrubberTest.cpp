// The filmstrip scrubber over a real movie: the strip's pictures and their times, the picture at
// the playhead while a mouse drags, pausing and resuming playback around a drag, and a new strip
// when the scrubber changes width.

#include "QtPrinters.h"
#include "TestMovies.h"

#include <player/VUMoviePlayer.h>
#include <scrubber/VUVideoScrubber.h>

#include "ui/Settle.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

// A 160 x 96 movie of 48 numbered pictures at 24 a second under a 390 x 84 scrubber.
class ScrubberTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        const QString path = dir.filePath(QStringLiteral("numbered.mov"));
        QString error;
        ASSERT_TRUE(writeTestMovie(path, TestMovie{}, &error)) << error.toStdString();
        scrubber.resize(390, 84);
        scrubber.show();
        player.setMovie(path);
        settle();
    }
    static void settle()
    {
        QStringList pending;
        EXPECT_TRUE(ui::Settle::waitUntilSettled(10s, &pending, 0ms)) << pending.join(QStringLiteral(", ")).toStdString();
    }
    QPoint at(double time) const { return QPoint(qRound(scrubber.positionForTime(time)), qRound(scrubber.stripRect().center().y())); }
    int shown() const { return testMovieFrameIndex(player.currentFrame()); }

    QTemporaryDir dir;
    VUMoviePlayer player;
    VUVideoScrubber scrubber{&player};
};

} // namespace

TEST_F(ScrubberTest, TheStripShowsThePictureUnderTheMiddleOfEachCell)
{
    // A 358-point strip of 58-point-high cells in the movie's 5:3 shape: four, the last cut off.
    EXPECT_EQ(scrubber.stripRect(), QRectF(16, 8, 358, 58));
    const QList<double> times = scrubber.thumbnailTimes();
    ASSERT_EQ(times.size(), 4);
    const double cell = 58 * 160 / 96.0;
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(times[i], (i + 0.5) * cell / 358 * 2.0, 1e-9) << i;
    EXPECT_EQ(scrubber.loadedThumbnailCount(), 4);

    // A narrower scrubber lays out a new strip and drops the old one's pictures.
    scrubber.resize(200, 84);
    EXPECT_EQ(scrubber.loadedThumbnailCount(), 0);
    settle();
    EXPECT_EQ(scrubber.thumbnailTimes().size(), 2);
    EXPECT_EQ(scrubber.loadedThumbnailCount(), 2);
}

TEST_F(ScrubberTest, DraggingShowsThePictureUnderTheFingerAndPlaysOnAfterwards)
{
    QSignalSpy began(&scrubber, &VUVideoScrubber::scrubbingBegan);
    QSignalSpy ended(&scrubber, &VUVideoScrubber::scrubbingEnded);
    player.play();
    QTest::mousePress(&scrubber, Qt::LeftButton, {}, at(1.0));
    EXPECT_TRUE(scrubber.isScrubbing());
    EXPECT_FALSE(player.isPlaying());
    settle();
    EXPECT_EQ(shown(), 24);

    QTest::mouseMove(&scrubber, at(1.5));
    settle();
    EXPECT_EQ(shown(), 36);
    // Past the end of the strip the last picture stays.
    QTest::mouseMove(&scrubber, QPoint(389, 30));
    settle();
    EXPECT_EQ(shown(), 47);

    QTest::mouseRelease(&scrubber, Qt::LeftButton, {}, at(0.5));
    settle();
    EXPECT_EQ(shown(), 12);
    EXPECT_FALSE(scrubber.isScrubbing());
    EXPECT_TRUE(player.isPlaying());
    EXPECT_EQ(began.count(), 1);
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(ScrubberTest, KeyFrameScrubbingShowsKeyFramesUntilTheFingerLifts)
{
    scrubber.setSeekTolerance(VUMoviePlayer::SeekTolerance::KeyFrame);
    QTest::mousePress(&scrubber, Qt::LeftButton, {}, at(0.9));
    settle();
    EXPECT_EQ(shown(), 12);
    QTest::mouseMove(&scrubber, at(1.3));
    settle();
    EXPECT_EQ(shown(), 24);
    // Letting go shows the exact picture, and a paused player stays paused.
    QTest::mouseRelease(&scrubber, Qt::LeftButton, {}, at(1.3));
    settle();
    EXPECT_NEAR(player.currentTime(), 1.3, 0.01);
    EXPECT_EQ(shown(), int(player.currentTime() * 24));
    EXPECT_FALSE(player.isPlaying());
}
