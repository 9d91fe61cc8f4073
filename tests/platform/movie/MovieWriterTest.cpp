#include "movie/MovieMetadata.h"
#include "movie/MovieWriter.h"
#include "movie/PixelBufferAdaptor.h"
#include "movie/VideoInput.h"

#include "dispatch/Dispatch.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

extern "C" {
#include <libavformat/avformat.h>
}

using namespace movie;

namespace {

struct Written {
    MovieWriter::Status status;
    QString error;
    QThread *completionThread;
};

// Writes `frames` solid frames of width x height at `fps`, the movie ending one frame after the last.
Written writeMovie(const QString &path, int width, int height, int frames, int fps, const QList<MetadataItem> &items,
                   const QTransform &transform = {})
{
    auto writer = MovieWriter::create(path, MovieFileType::QuickTimeMovie);
    const QSize encoded = transform.mapRect(QRect(0, 0, width, height)).size();
    auto input = std::make_shared<VideoInput>(VideoOutputSettings{kVideoCodecH264, encoded.width(), encoded.height()});
    input->setTransform(transform);
    writer->setMetadata(items);
    PixelBufferAdaptor adaptor(writer, input);
    writer->addInput(input);
    writer->startWriting();
    writer->startSession({0, fps});
    PixelBufferPool pool;
    for (int i = 0; i < frames; ++i) {
        PixelBufferPtr buffer = pool.createPixelBuffer(width, height);
        std::fill_n(reinterpret_cast<quint32 *>(buffer->baseAddress()), buffer->bytesPerRow() / 4 * height, 0xff2060a0u + quint32(i));
        if (!adaptor.appendPixelBuffer(*buffer, {i, fps}))
            break;
    }
    input->markAsFinished();
    writer->endSession({frames, fps});
    Written result{};
    dispatch::Semaphore done;
    writer->finishWriting([&] {
        result = {writer->status(), writer->error(), QThread::currentThread()};
        done.signal();
    });
    done.wait();
    return result;
}

int countVideoPackets(const QString &path)
{
    AVFormatContext *context = nullptr;
    if (avformat_open_input(&context, QFile::encodeName(path).constData(), nullptr, nullptr) < 0)
        return -1;
    AVPacket *packet = av_packet_alloc();
    int count = 0;
    while (av_read_frame(context, packet) >= 0) {
        count += context->streams[packet->stream_index]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO;
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    avformat_close_input(&context);
    return count;
}

} // namespace

TEST(MovieWriter, WritesEveryFrameWithMetadataOthersCanRead)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.mov"));
    const QList<MetadataItem> items = QList<MetadataItem>{{kLocationKey, QStringLiteral("+37.785834-122.406417/")},
                                                          {kCreationDateKey, QStringLiteral("2021-03-05T14:07:09+0100")},
                                                          {kPublisherKey, QStringLiteral("Library Filler")}}
                                      + pairingIdentifierMetadataItems(QStringLiteral("PAIR-1"));
    const Written written = writeMovie(path, 160, 96, 46, 15, items);
    ASSERT_EQ(written.status, MovieWriter::Status::Completed) << written.error.toStdString();
    EXPECT_NE(written.completionThread, QThread::currentThread());

    MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(readMovieMetadata(path, &metadata, &error)) << error.toStdString();
    EXPECT_EQ(countVideoPackets(path), 46);
    EXPECT_NEAR(metadata.duration, 46.0 / 15.0, 0.01);
    EXPECT_EQ(metadata.pixelSize, QSize(160, 96));
    ASSERT_TRUE(metadata.hasLocation);
    // All six decimals survive: no four-decimal copy of the location hides the precise one.
    EXPECT_DOUBLE_EQ(metadata.latitude, 37.785834);
    EXPECT_DOUBLE_EQ(metadata.longitude, -122.406417);
    EXPECT_EQ(metadata.creationDate, QDateTime(QDate(2021, 3, 5), QTime(13, 7, 9), Qt::UTC));
    EXPECT_EQ(metadata.publisher, QStringLiteral("Library Filler"));
    EXPECT_EQ(metadata.pairingIdentifier, QStringLiteral("PAIR-1"));
}

TEST(MovieWriter, QuarterTurnTransformIsShownAndScalesBuffersToTheEncodedSize)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("turned.mov"));
    QTransform quarterTurn(0, 1, -1, 0, 0, 0);
    // 160 x 96 buffers into a 96 x 160 encoder, shown turned back to 160 x 96.
    const Written written = writeMovie(path, 160, 96, 3, 24, {}, quarterTurn);
    ASSERT_EQ(written.status, MovieWriter::Status::Completed) << written.error.toStdString();
    MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(readMovieMetadata(path, &metadata, &error));
    EXPECT_EQ(metadata.pixelSize, QSize(160, 96));
    EXPECT_FALSE(metadata.hasLocation);
    EXPECT_TRUE(metadata.pairingIdentifier.isEmpty());
    EXPECT_TRUE(pairingIdentifierMetadataItems(QString()).isEmpty());
}

TEST(MovieWriter, FailuresReachTheStatusAndTheHandler)
{
    QTemporaryDir dir;
    Written written = writeMovie(dir.filePath(QStringLiteral("missing/a.mov")), 64, 64, 2, 24, {});
    EXPECT_EQ(written.status, MovieWriter::Status::Failed);
    EXPECT_TRUE(written.error.contains(QStringLiteral("missing/a.mov"))) << written.error.toStdString();

    written = writeMovie(dir.filePath(QStringLiteral("empty.mov")), 64, 64, 0, 24, {});
    EXPECT_EQ(written.status, MovieWriter::Status::Failed);
    EXPECT_TRUE(written.error.contains(QStringLiteral("no frame")));
}

TEST(MovieMetadata, ReadsLocationTextAndRefusesNonMovies)
{
    double latitude = 0, longitude = 0;
    EXPECT_TRUE(parseISO6709(QStringLiteral("-33.860000+151.210000/"), &latitude, &longitude));
    EXPECT_DOUBLE_EQ(latitude, -33.86);
    EXPECT_DOUBLE_EQ(longitude, 151.21);
    EXPECT_TRUE(parseISO6709(QStringLiteral("+37.5-122.25+12.5/"), &latitude, &longitude)); // altitude ignored
    EXPECT_DOUBLE_EQ(longitude, -122.25);
    EXPECT_FALSE(parseISO6709(QStringLiteral("north"), &latitude, &longitude));

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("text.mov"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("plain text");
    file.close();
    MovieMetadata metadata;
    QString error;
    EXPECT_FALSE(readMovieMetadata(path, &metadata, &error));
    EXPECT_TRUE(error.contains(QStringLiteral("text.mov"))) << error.toStdString();
}

TEST(PixelBufferPool, RowsArePaddedAndReleasedBuffersAreReused)
{
    PixelBufferPool pool;
    PixelBufferPtr first = pool.createPixelBuffer(1000, 4);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->bytesPerRow(), 4032); // 4000 rounded up to 64
    EXPECT_EQ(pool.createPixelBuffer(1024, 4)->bytesPerRow(), 4096);
    const uchar *address = first->baseAddress();
    first.reset();
    EXPECT_EQ(pool.createPixelBuffer(1000, 4)->baseAddress(), address);
    EXPECT_EQ(pool.createPixelBuffer(0, 4), nullptr);
}

// Test pictures may have any height (the filler keeps the aspect ratio's height); 4:2:0 H.264
// needs even sides, so an odd side is encoded one pixel larger instead of failing.
TEST(MovieWriter, OddFrameSidesAreEncodedOnePixelLarger)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("odd.mov"));
    const Written written = writeMovie(path, 64, 35, 5, 10, {});
    ASSERT_EQ(written.status, MovieWriter::Status::Completed) << written.error.toStdString();
    EXPECT_EQ(countVideoPackets(path), 5);
    MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(readMovieMetadata(path, &metadata, &error)) << error.toStdString();
    EXPECT_EQ(metadata.pixelSize, QSize(64, 36));

    ASSERT_EQ(writeMovie(dir.filePath(QStringLiteral("odd-width.mov")), 63, 64, 2, 24, {}).status, MovieWriter::Status::Completed);
}
