// Decoding the pictures of real H.264 movies: in order, at a time, from the key frame before it,
// and what each request costs in decoded pictures and jumps.

#include "TestMovies.h"

#include "movie/MovieDecoder.h"
#include "movie/MovieWriter.h"
#include "movie/PixelBufferAdaptor.h"
#include "movie/VideoInput.h"

#include "dispatch/Dispatch.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace movie;

namespace {

// 48 pictures at 24 per second, a key frame every 12: keys at 0, 0.5, 1 and 1.5 s.
class MovieDecoderTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        QString error;
        ASSERT_TRUE(writeTestMovie(path(), TestMovie{}, &error)) << error.toStdString();
        decoder = MovieDecoder::open(path(), &error);
        ASSERT_TRUE(decoder) << error.toStdString();
    }
    QString path() const { return dir.filePath(QStringLiteral("numbered.mov")); }

    // The index of the picture at `time`, and what finding it cost.
    struct Seek {
        int index;
        qint64 decoded;
        qint64 jumps;
    };
    Seek seek(double time, MovieDecoder::SeekMode mode = MovieDecoder::SeekMode::Exact)
    {
        const qint64 decoded = decoder->decodedFrameCount(), jumps = decoder->jumpCount();
        VideoFrame frame;
        QString error;
        EXPECT_TRUE(decoder->seek(time, &frame, &error, mode)) << error.toStdString();
        return {testMovieFrameIndex(frame.image), decoder->decodedFrameCount() - decoded, decoder->jumpCount() - jumps};
    }

    QTemporaryDir dir;
    std::unique_ptr<MovieDecoder> decoder;
};

} // namespace

TEST_F(MovieDecoderTest, ReadsEveryPictureInOrderWithItsTimeAndKeyFrames)
{
    EXPECT_DOUBLE_EQ(decoder->duration(), 2.0);
    EXPECT_DOUBLE_EQ(decoder->nominalFrameRate(), 24.0);
    EXPECT_EQ(decoder->presentationSize(), QSize(160, 96));
    EXPECT_EQ(decoder->keyFrameTimes(), (QList<double>{0.0, 0.5, 1.0, 1.5}));

    VideoFrame frame;
    QString error;
    int count = 0;
    while (decoder->readNextFrame(&frame, &error)) {
        EXPECT_EQ(testMovieFrameIndex(frame.image), count);
        EXPECT_NEAR(frame.time, count / 24.0, 1e-9);
        EXPECT_NEAR(frame.duration, 1 / 24.0, 1e-9);
        EXPECT_EQ(frame.isKeyFrame, count % 12 == 0) << count;
        EXPECT_EQ(frame.image.format(), QImage::Format_RGB32);
        ++count;
    }
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    EXPECT_EQ(count, 48);
}

TEST_F(MovieDecoderTest, SeekGivesThePictureShowingAtTheTimeFromTheKeyFrameBeforeIt)
{
    // From the key frame at 0.5 s (picture 12) up to 0.9 s (picture 21): ten pictures.
    Seek s = seek(0.9);
    EXPECT_EQ(s.index, 21);
    EXPECT_EQ(s.jumps, 1);
    EXPECT_EQ(s.decoded, 10);

    // Creeping forward past no key frame decodes on without a jump.
    s = seek(0.95);
    EXPECT_EQ(s.index, 22);
    EXPECT_EQ(s.jumps, 0);
    EXPECT_EQ(s.decoded, 1);

    // The same picture again costs nothing; going back, or beyond a key frame, jumps.
    s = seek(22.5 / 24);
    EXPECT_EQ(s.index, 22);
    EXPECT_EQ(s.decoded, 0);
    s = seek(0.4);
    EXPECT_EQ(s.index, 9);
    EXPECT_EQ(s.jumps, 1);
    EXPECT_EQ(s.decoded, 10);
    s = seek(1.6);
    EXPECT_EQ(s.index, 38);
    EXPECT_EQ(s.jumps, 1);

    // Frame boundaries computed as i / fps land on picture i; out of range clamps to the ends.
    EXPECT_EQ(seek(13 / 24.0).index, 13);
    EXPECT_EQ(seek(-3).index, 0);
    EXPECT_EQ(seek(99).index, 47);
    EXPECT_EQ(seek(47.5 / 24).index, 47);
}

TEST_F(MovieDecoderTest, PreviousKeyFrameModeAndReadingOnAfterASeek)
{
    VideoFrame frame;
    QString error;
    ASSERT_TRUE(decoder->seek(1.3, &frame, &error, MovieDecoder::SeekMode::PreviousKeyFrame));
    EXPECT_EQ(testMovieFrameIndex(frame.image), 24);
    EXPECT_TRUE(frame.isKeyFrame);
    EXPECT_DOUBLE_EQ(frame.time, 1.0);
    EXPECT_EQ(decoder->keyFrameTimeAtOrBefore(1.3), 1.0);
    EXPECT_EQ(decoder->keyFrameTimeAtOrBefore(1.0 - 1e-9), 1.0);

    ASSERT_TRUE(decoder->seek(45 / 24.0, &frame, &error));
    for (int expected : {46, 47}) {
        ASSERT_TRUE(decoder->readNextFrame(&frame, &error));
        EXPECT_EQ(testMovieFrameIndex(frame.image), expected);
    }
    EXPECT_FALSE(decoder->readNextFrame(&frame, &error));
    EXPECT_TRUE(error.isEmpty());
    // The end is not a dead end.
    ASSERT_TRUE(decoder->seek(0.2, &frame, &error));
    EXPECT_EQ(testMovieFrameIndex(frame.image), 4);
}

TEST_F(MovieDecoderTest, PicturesHeldByTheCallerAreNeverWrittenOver)
{
    VideoFrame frame;
    QString error;
    std::vector<QImage> held;
    for (int i = 0; i < 20 && decoder->readNextFrame(&frame, &error); ++i)
        held.push_back(frame.image);
    // Let most of them go, so their memory is reused for the pictures that follow.
    held.resize(3);
    for (int i = 0; i < 20 && decoder->readNextFrame(&frame, &error); ++i)
        EXPECT_EQ(testMovieFrameIndex(frame.image), 20 + i);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(testMovieFrameIndex(held[size_t(i)]), i);
}

TEST_F(MovieDecoderTest, PicturesAreScaledDownToTheMaximumSizeOnly)
{
    decoder->setMaximumSize(QSize(80, 80));
    EXPECT_EQ(decoder->outputSize(), QSize(80, 48));
    VideoFrame frame;
    QString error;
    ASSERT_TRUE(decoder->seek(0.5, &frame, &error));
    EXPECT_EQ(frame.image.size(), QSize(80, 48));
    EXPECT_EQ(testMovieFrameIndex(frame.image), 12);
    // The picture already decoded is not reused at its old size.
    decoder->setMaximumSize(QSize(1000, 1000));
    ASSERT_TRUE(decoder->seek(0.5, &frame, &error));
    EXPECT_EQ(frame.image.size(), QSize(160, 96));
}

TEST(MovieDecoder, TurnedMoviesComeOutUpright)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("turned.mov"));
    // Stored 32 x 64 with a bright left half, shown turned a quarter: 64 x 32, bright on top.
    auto writer = MovieWriter::create(path, MovieFileType::QuickTimeMovie);
    auto input = std::make_shared<VideoInput>(VideoOutputSettings{kVideoCodecH264, 32, 64});
    input->setTransform(QTransform(0, 1, -1, 0, 0, 0));
    PixelBufferAdaptor adaptor(writer, input);
    writer->addInput(input);
    writer->startWriting();
    writer->startSession({0, 24});
    PixelBufferPtr buffer = adaptor.createPooledPixelBuffer();
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 32; ++x)
            reinterpret_cast<quint32 *>(buffer->baseAddress() + y * buffer->bytesPerRow())[x] = x < 16 ? 0xffffffffu : 0xff000000u;
    ASSERT_TRUE(adaptor.appendPixelBuffer(*buffer, {0, 24}));
    input->markAsFinished();
    writer->endSession({1, 24});
    dispatch::Semaphore done;
    writer->finishWriting([&] { done.signal(); });
    done.wait();

    QString error;
    auto decoder = MovieDecoder::open(path, &error);
    ASSERT_TRUE(decoder) << error.toStdString();
    EXPECT_EQ(decoder->presentationSize(), QSize(64, 32));
    VideoFrame frame;
    ASSERT_TRUE(decoder->readNextFrame(&frame, &error));
    ASSERT_EQ(frame.image.size(), QSize(64, 32));
    EXPECT_GT(qGray(frame.image.pixel(32, 4)), 200);
    EXPECT_LT(qGray(frame.image.pixel(32, 28)), 50);
}

TEST(MovieDecoder, MissingAndForeignFilesAreRefusedByName)
{
    QTemporaryDir dir;
    QString error;
    EXPECT_FALSE(MovieDecoder::open(dir.filePath(QStringLiteral("none.mov")), &error));
    EXPECT_TRUE(error.contains(QStringLiteral("none.mov"))) << error.toStdString();

    const QString text = dir.filePath(QStringLiteral("notes.mov"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a movie at all, only words\n");
    file.close();
    error.clear();
    EXPECT_FALSE(MovieDecoder::open(text, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("notes.mov"))) << error.toStdString();
}
