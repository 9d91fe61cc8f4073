#include "movie/MovieMetadata.h"
#include "movie/MovieWriter.h"
#include "movie/PixelBufferAdaptor.h"
#include "movie/VideoInput.h"

#include "dispatch/Dispatch.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

using namespace movie;

namespace {

struct Written {
    MovieWriter::Status status;
    QString error;
    QThread *completionThread;
};

using Painter = std::function<void(PixelBuffer &buffer)>;

// Writes `frames` frames of width x height at `fps`, the movie ending one frame after the last;
// solid ones of a colour creeping with the frame number unless `paint` draws them.
Written writeMovie(const QString &path, int width, int height, int frames, int fps, const QList<MetadataItem> &items,
                   const QTransform &transform = {}, const Painter &paint = {})
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
        if (paint)
            paint(*buffer);
        else
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

// The keys of the file's own tags, or of its video track's, as libavformat reads them; sorted.
QStringList tagKeys(const QString &path, bool track)
{
    AVFormatContext *context = nullptr;
    if (avformat_open_input(&context, QFile::encodeName(path).constData(), nullptr, nullptr) < 0)
        return {QStringLiteral("<unreadable>")};
    avformat_find_stream_info(context, nullptr);
    const AVDictionary *tags = track ? context->streams[0]->metadata : context->metadata;
    QStringList keys;
    for (const AVDictionaryEntry *entry = nullptr; (entry = av_dict_get(tags, "", entry, AV_DICT_IGNORE_SUFFIX));)
        keys << QString::fromUtf8(entry->key);
    avformat_close_input(&context);
    keys.sort();
    return keys;
}

// The luma plane of the first frame a decoder gives, as grey levels; null when nothing decodes.
QImage decodedFirstFrameLuma(const QString &path)
{
    AVFormatContext *format = nullptr;
    if (avformat_open_input(&format, QFile::encodeName(path).constData(), nullptr, nullptr) < 0)
        return {};
    QImage luma;
    const AVCodec *decoder = nullptr;
    const int video = avformat_find_stream_info(format, nullptr) < 0 ? -1 : av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, &decoder, 0);
    AVCodecContext *codec = video < 0 ? nullptr : avcodec_alloc_context3(decoder);
    AVPacket *packet = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    if (codec && avcodec_parameters_to_context(codec, format->streams[video]->codecpar) >= 0 && avcodec_open2(codec, decoder, nullptr) >= 0) {
        bool decoded = false;
        while (!decoded && av_read_frame(format, packet) >= 0) {
            if (packet->stream_index == video && avcodec_send_packet(codec, packet) >= 0)
                decoded = avcodec_receive_frame(codec, frame) >= 0;
            av_packet_unref(packet);
        }
        if (!decoded && avcodec_send_packet(codec, nullptr) >= 0)
            decoded = avcodec_receive_frame(codec, frame) >= 0;
        if (decoded) {
            luma = QImage(frame->width, frame->height, QImage::Format_Grayscale8);
            for (int y = 0; y < frame->height; ++y)
                std::memcpy(luma.scanLine(y), frame->data[0] + y * frame->linesize[0], size_t(frame->width));
        }
    }
    av_frame_free(&frame);
    av_packet_free(&packet);
    avcodec_free_context(&codec);
    avformat_close_input(&format);
    return luma;
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

    // Nothing beyond the items: no key naming the muxer, no second creation time.
    QStringList expected{QStringLiteral("major_brand"), QStringLiteral("minor_version"), QStringLiteral("compatible_brands")};
    for (const MetadataItem &item : items)
        expected << item.key;
    expected.sort();
    EXPECT_EQ(tagKeys(path, false), expected);
    EXPECT_FALSE(tagKeys(path, true).contains(QStringLiteral("creation_time")));
    const QString ffprobe = QStandardPaths::findExecutable(QStringLiteral("ffprobe"));
    if (!ffprobe.isEmpty()) {
        QProcess probe;
        probe.start(ffprobe, {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                              QStringLiteral("format_tags:stream_tags"), QStringLiteral("-of"), QStringLiteral("json"), path});
        ASSERT_TRUE(probe.waitForFinished(30000));
        const QByteArray shown = probe.readAllStandardOutput();
        EXPECT_TRUE(shown.contains("Library Filler")) << shown.toStdString();
        EXPECT_FALSE(shown.contains("encoder")) << shown.toStdString();
        EXPECT_FALSE(shown.contains("creation_time")) << shown.toStdString();
    }
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

// A movie appears under its name only complete; one abandoned half-way leaves nothing behind.
TEST(MovieWriter, AMovieTakesItsNameOnlyWhenComplete)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("whole.mov"));
    const auto entries = [&] { return QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); };
    {
        auto writer = MovieWriter::create(path, MovieFileType::QuickTimeMovie);
        auto input = std::make_shared<VideoInput>(VideoOutputSettings{kVideoCodecH264, 64, 64});
        PixelBufferAdaptor adaptor(writer, input);
        writer->addInput(input);
        ASSERT_TRUE(writer->startWriting());
        PixelBufferPool pool;
        for (int i = 0; i < 3; ++i)
            ASSERT_TRUE(adaptor.appendPixelBuffer(*pool.createPixelBuffer(64, 64), {i, 10}));
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_EQ(entries().size(), 1);
    }
    EXPECT_TRUE(entries().isEmpty()) << entries().join(QLatin1Char(' ')).toStdString();

    ASSERT_EQ(writeMovie(path, 64, 64, 3, 10, {}).status, MovieWriter::Status::Completed);
    EXPECT_EQ(entries(), QStringList{QStringLiteral("whole.mov")});
    EXPECT_EQ(countVideoPackets(path), 3);
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

// Test pictures may have any size (the filler keeps the aspect ratio's height). Readers must see
// the size asked for, so that a Stir Shot's movie matches its photo, and the last row and column
// must hold the picture's own pixels.
TEST(MovieWriter, OddFrameSidesAreStoredExactly)
{
    QTemporaryDir dir;
    for (const QSize size : {QSize(160, 91), QSize(161, 90), QSize(63, 35)}) {
        SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height());
        const QString path = dir.filePath(QStringLiteral("odd-%1x%2.mov").arg(size.width()).arg(size.height()));
        // Dark frames with a bright last row and last column.
        const Written written = writeMovie(path, size.width(), size.height(), 3, 10, {}, {}, [&](PixelBuffer &buffer) {
            for (int y = 0; y < size.height(); ++y) {
                auto *row = reinterpret_cast<quint32 *>(buffer.baseAddress() + y * buffer.bytesPerRow());
                for (int x = 0; x < size.width(); ++x)
                    row[x] = (x == size.width() - 1 || y == size.height() - 1) ? 0xffffffffu : 0xff101010u;
            }
        });
        ASSERT_EQ(written.status, MovieWriter::Status::Completed) << written.error.toStdString();
        EXPECT_EQ(countVideoPackets(path), 3);
        MovieMetadata metadata;
        QString error;
        ASSERT_TRUE(readMovieMetadata(path, &metadata, &error)) << error.toStdString();
        EXPECT_EQ(metadata.pixelSize, size);

        const QImage luma = decodedFirstFrameLuma(path);
        ASSERT_EQ(luma.size(), size);
        const int w = size.width(), h = size.height();
        EXPECT_GT(qGray(luma.pixel(w / 2, h - 1)), 180);
        EXPECT_LT(qGray(luma.pixel(w / 2, h - 3)), 70);
        EXPECT_GT(qGray(luma.pixel(w - 1, h / 2)), 180);
        EXPECT_LT(qGray(luma.pixel(w - 3, h / 2)), 70);
    }
}
