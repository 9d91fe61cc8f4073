#include "media/VUTesterVideoWriter.h"

#include "MovieFileProbe.h"

#include <dispatch/Dispatch.h>
#include <movie/MovieMetadata.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <mutex>

#include <gtest/gtest.h>

namespace {

QImage frame(int width, int height)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::darkCyan);
    return image;
}

struct Outcome {
    VUTesterOptionalError error;
    QThread *thread = nullptr;
};

Outcome create(VUTesterVideoWriter &writer)
{
    Outcome outcome;
    dispatch::Semaphore done;
    writer.createVideoWithCompletionHandler([&](VUTesterOptionalError error) {
        outcome = {error, QThread::currentThread()};
        done.signal();
    });
    done.wait();
    return outcome;
}

// Collects warnings while alive.
class WarningRecorder {
public:
    WarningRecorder() { s_messages.clear(); m_previous = qInstallMessageHandler(record); }
    ~WarningRecorder() { qInstallMessageHandler(m_previous); }
    static QStringList messages() { std::lock_guard lock(s_mutex); return s_messages; }

private:
    static void record(QtMsgType type, const QMessageLogContext &, const QString &message)
    {
        std::lock_guard lock(s_mutex);
        if (type == QtWarningMsg)
            s_messages << message;
    }
    QtMessageHandler m_previous;
    static inline std::mutex s_mutex;
    static inline QStringList s_messages;
};

} // namespace

TEST(VUTesterVideoWriter, FrameCountIncludesBothEndsAndTimesAreCountedNotAccumulated)
{
    QTemporaryDir dir;
    struct Case {
        double duration, fps;
        size_t frames;
    };
    for (const Case &c : {Case{2.0, 24.0, 49}, Case{3.0, 15.0, 46}, Case{0.1, 30.0, 4}}) {
        VUTesterVideoWriter writer;
        writer.setOutputURL(dir.filePath(QStringLiteral("count-%1-%2.mov").arg(c.duration).arg(c.fps)));
        writer.setOutputDuration(c.duration);
        writer.setOutputFPS(c.fps);
        std::vector<double> asked;
        writer.setFrameGenerator([&](double t) {
            asked.push_back(t);
            return frame(64, 48);
        });
        const Outcome outcome = create(writer);
        ASSERT_FALSE(outcome.error) << outcome.error->debugDescription.toStdString();
        ASSERT_EQ(asked.size(), c.frames);
        for (size_t i = 0; i < asked.size(); ++i)
            EXPECT_EQ(asked[i], double(i) / c.fps); // exact: i / fps, never a running sum

        const MovieFileProbe probe = MovieFileProbe::probe(writer.outputURL());
        EXPECT_EQ(probe.frameTimes.size(), c.frames);
        movie::MovieMetadata metadata;
        QString error;
        ASSERT_TRUE(movie::readMovieMetadata(writer.outputURL(), &metadata, &error));
        EXPECT_NEAR(metadata.duration, double(c.frames) / c.fps, 0.002);
    }
}

TEST(VUTesterVideoWriter, SkippedFramesLeaveGapsAndTheOthersKeepTheirTimes)
{
    QTemporaryDir dir;
    VUTesterVideoWriter writer;
    writer.setOutputURL(dir.filePath(QStringLiteral("gaps.mov")));
    writer.setOutputDuration(1.0);
    writer.setOutputFPS(10.0);
    int call = 0;
    writer.setFrameGenerator([&](double) { return (call++ % 3 == 1) ? QImage() : frame(64, 48); });
    const Outcome outcome = create(writer);
    ASSERT_FALSE(outcome.error);
    const MovieFileProbe probe = MovieFileProbe::probe(writer.outputURL());
    const std::vector<double> expected{0.0, 0.2, 0.3, 0.5, 0.6, 0.8, 0.9};
    ASSERT_EQ(probe.frameTimes.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(probe.frameTimes[i], expected[i], 1e-6);
}

TEST(VUTesterVideoWriter, QuarterTurnSwapsTheEncodedSizeAndPlayersTurnItBack)
{
    QTemporaryDir dir;
    VUTesterVideoWriter writer;
    writer.setOutputURL(dir.filePath(QStringLiteral("turned.mov")));
    writer.setOutputDuration(0.1);
    writer.setOutputFPS(10.0);
    writer.setTransform(QTransform(0, 1, -1, 0, 0, 0));
    writer.setFrameGenerator([&](double) { return frame(320, 176); });
    ASSERT_FALSE(create(writer).error);
    EXPECT_EQ(MovieFileProbe::probe(writer.outputURL()).encodedSize, QSize(176, 320));
    movie::MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(movie::readMovieMetadata(writer.outputURL(), &metadata, &error));
    EXPECT_EQ(metadata.pixelSize, QSize(320, 176));
    // The buffers themselves keep the image's own size.
    EXPECT_EQ(writer._pixelBufferFromImage(frame(320, 176))->width(), 320);
}

TEST(VUTesterVideoWriter, WidthOffTheSixteenGridWarnsAndStillWrites)
{
    QTemporaryDir dir;
    for (const int width : {200, 208}) {
        WarningRecorder recorder;
        VUTesterVideoWriter writer;
        writer.setOutputURL(dir.filePath(QStringLiteral("w%1.mov").arg(width)));
        writer.setOutputDuration(0.1);
        writer.setOutputFPS(10.0);
        writer.setFrameGenerator([&](double) { return frame(width, 64); });
        ASSERT_FALSE(create(writer).error);
        EXPECT_TRUE(QFile::exists(writer.outputURL()));
        const QStringList expected = width % 16 ? QStringList{QStringLiteral("Warning: for now, video width should be a multiple of 16 to produce expected results ({%1, 64})").arg(width)}
                                                : QStringList{};
        EXPECT_EQ(WarningRecorder::messages(), expected);
    }
}

TEST(VUTesterVideoWriter, ArgbRowsAreWidthTimesFourEvenWhenTheBufferPadsThem)
{
    VUTesterVideoWriter writer;
    QImage image(20, 3, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int x = 0; x < 20; ++x)
        image.setPixel(x, 1, qRgb(255, 0, 0)); // one red row
    const movie::PixelBufferPtr buffer = writer._pixelBufferFromImage(image);
    ASSERT_TRUE(buffer);
    EXPECT_EQ(buffer->bytesPerRow(), 128); // 80 bytes padded to 128
    const auto *words = reinterpret_cast<const quint32 *>(buffer->baseAddress());
    // Row 1 starts 80 bytes in, not 128: the red row lands where the padded layout has row 0's tail.
    EXPECT_EQ(words[20] & 0xffffff, 0xff0000u);
    EXPECT_EQ(words[0] & 0xffffff, 0u);
}

TEST(VUTesterVideoWriter, MetadataItemsAreReadBack)
{
    QTemporaryDir dir;
    VUTesterVideoWriter writer;
    writer.setOutputURL(dir.filePath(QStringLiteral("meta.mov")));
    writer.setOutputDuration(0.1);
    writer.setOutputFPS(10.0);
    writer.setLocation(VUTesterLocation{37.785834, -122.406417});
    const QDateTime date(QDate(2021, 3, 5), QTime(14, 7, 9));
    writer.setDate(date);
    writer.setStirShotPairingIdentifier(QStringLiteral("PAIR-42"));
    writer.setFrameGenerator([&](double) { return frame(64, 48); });
    const Outcome outcome = create(writer);
    ASSERT_FALSE(outcome.error);
    EXPECT_NE(outcome.thread, QThread::currentThread());

    movie::MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(movie::readMovieMetadata(writer.outputURL(), &metadata, &error));
    EXPECT_TRUE(metadata.hasLocation);
    EXPECT_DOUBLE_EQ(metadata.latitude, 37.785834);
    EXPECT_DOUBLE_EQ(metadata.longitude, -122.406417);
    EXPECT_EQ(metadata.creationDate, date);
    EXPECT_EQ(metadata.publisher, QStringLiteral("Library Filler"));
    EXPECT_EQ(metadata.pairingIdentifier, QStringLiteral("PAIR-42"));

    EXPECT_EQ(VUTesterVideoWriter::_locationText({37.785834, -122.406417}), QStringLiteral("+37.785834-122.406417/"));
    EXPECT_EQ(VUTesterVideoWriter::_locationText({0.0, 151.21}), QStringLiteral("0.000000+151.210000/"));
}

TEST(VUTesterVideoWriter, FailuresReachTheHandler)
{
    QTemporaryDir dir;
    VUTesterVideoWriter unwritable;
    unwritable.setOutputURL(dir.filePath(QStringLiteral("missing/a.mov")));
    unwritable.setFrameGenerator([&](double) { return frame(64, 48); });
    Outcome outcome = create(unwritable);
    ASSERT_TRUE(outcome.error);
    EXPECT_TRUE(outcome.error->debugDescription.contains(QStringLiteral("missing/a.mov")));

    // Presentation times are whole ticks of the frame rate: below 1 fps there are none.
    VUTesterVideoWriter slow;
    slow.setOutputURL(dir.filePath(QStringLiteral("slow.mov")));
    slow.setOutputFPS(0.5);
    slow.setFrameGenerator([&](double) { return frame(64, 48); });
    outcome = create(slow);
    ASSERT_TRUE(outcome.error);
    EXPECT_TRUE(outcome.error->debugDescription.contains(QStringLiteral("time scale")));

    // Without the frame at time 0 no encoder is set up: an error, not a hang.
    VUTesterVideoWriter noFirstFrame;
    noFirstFrame.setOutputURL(dir.filePath(QStringLiteral("late.mov")));
    noFirstFrame.setFrameGenerator([&](double t) { return t == 0 ? QImage() : frame(64, 48); });
    outcome = create(noFirstFrame);
    ASSERT_TRUE(outcome.error);
    EXPECT_FALSE(QFile::exists(noFirstFrame.outputURL()));
}

TEST(VUTesterVideoWriter, ColoursSurviveTheEncodeWhetherOrNotFramesAreScaled)
{
    QTemporaryDir dir;
    for (const bool turned : {false, true}) {
        VUTesterVideoWriter writer;
        writer.setOutputURL(dir.filePath(turned ? QStringLiteral("turned.mov") : QStringLiteral("plain.mov")));
        writer.setOutputDuration(0.1);
        writer.setOutputFPS(10.0);
        if (turned)
            writer.setTransform(QTransform(0, 1, -1, 0, 0, 0));
        writer.setFrameGenerator([](double) {
            QImage image(128, 96, QImage::Format_RGBA8888_Premultiplied);
            image.fill(QColor(200, 40, 90));
            return image;
        });
        ASSERT_FALSE(create(writer).error);
        // Another program decodes the first frame.
        const QString png = dir.filePath(QStringLiteral("frame.png"));
        QProcess ffmpeg;
        ffmpeg.start(QStringLiteral("ffmpeg"), {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"), QStringLiteral("-i"),
                                                writer.outputURL(), QStringLiteral("-frames:v"), QStringLiteral("1"), png});
        ASSERT_TRUE(ffmpeg.waitForFinished(30000));
        ASSERT_EQ(ffmpeg.exitCode(), 0) << ffmpeg.readAllStandardError().toStdString();
        const QColor centre = QImage(png).pixelColor(40, 40);
        EXPECT_NEAR(centre.red(), 200, 6) << turned;
        EXPECT_NEAR(centre.green(), 40, 6) << turned;
        EXPECT_NEAR(centre.blue(), 90, 6) << turned;
    }
}
