#include "media/VUTesterDefaultVideoGenerator.h"

#include "MovieFileProbe.h"
#include "ProcessStats.h"

#include <dispatch/Dispatch.h>
#include <movie/MovieMetadata.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include <unistd.h>

namespace {

struct Result {
    QString path;
    VUTesterOptionalError error;
    std::string queueLabel;
};

Result generate(VUTesterDefaultVideoGenerator &generator, const QString &suffix)
{
    Result result;
    dispatch::Semaphore done;
    generator.generateVideoWithFileNameSuffix(suffix, [&](const QString &path, VUTesterOptionalError error) {
        dispatch::Queue *queue = dispatch::Queue::current();
        result = {path, error, queue ? queue->label() : std::string()};
        done.signal();
    });
    done.wait();
    return result;
}

// A suffix of its own per run, so cached movies of earlier runs are never hit by accident.
QString uniqueSuffix()
{
    return QUuid::createUuid().toString(QUuid::Id128).left(12);
}

VUTesterDefaultVideoGenerator &tinyMovie()
{
    static VUTesterDefaultVideoGenerator generator;
    generator.setVideoSize({160, 90});
    generator.setVideoDuration(0.1);
    generator.setVideoFPS(10.0);
    return generator;
}

// TMPDIR names `path` while this lives.
class TemporaryFolder {
public:
    explicit TemporaryFolder(const QString &path) : m_previous(qgetenv("TMPDIR")) { qputenv("TMPDIR", QFile::encodeName(path)); }
    ~TemporaryFolder() { qputenv("TMPDIR", m_previous); }

private:
    QByteArray m_previous;
};

} // namespace

TEST(VUTesterDefaultVideoGenerator, SizesAreCappedAtTenEightyAndRoundedUpToSixteen)
{
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_normalizedVideoSize({1000, 2000}), QSizeF(544, 1080));
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_normalizedVideoSize({384, 216}), QSizeF(384, 216));
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_normalizedVideoSize({1920, 1080}), QSizeF(1920, 1080));
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_normalizedVideoSize({1000, 1000.4}), QSizeF(1008, 1000));
}

TEST(VUTesterDefaultVideoGenerator, FileNamesCarryTheParametersAndTheSuffix)
{
    VUTesterDefaultVideoGenerator generator;
    EXPECT_EQ(generator.videoSize(), QSizeF(1920, 1080));
    EXPECT_EQ(generator.videoDuration(), 5.0);
    EXPECT_EQ(generator.videoFPS(), 24.0);
    const QString plain = VUTesterDefaultVideoGenerator::_videoPath({1920, 1080}, 5.0, 24.0, QString());
    EXPECT_EQ(QFileInfo(plain).fileName(), QStringLiteral("com.vistra.VistraUITester.defaultvideo-1920x1080-5.0s-24.0fps.mov"));
    const QString suffixed = VUTesterDefaultVideoGenerator::_videoPath({544, 1080}, 360.0, 10.0, QStringLiteral("sharing"));
    EXPECT_TRUE(suffixed.endsWith(QStringLiteral("defaultvideo-544x1080-360.0s-10.0fps-sharing.mov")));
    EXPECT_EQ(QFileInfo(suffixed).absolutePath(), QDir(qEnvironmentVariable("TMPDIR")).absolutePath());
}

TEST(VUTesterDefaultVideoGenerator, TimeStampsUseTheDoublePrime)
{
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_timeStampLabel(0.0), QStringLiteral("0\u2033000"));
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_timeStampLabel(1.25), QStringLiteral("1\u2033250"));
    EXPECT_EQ(VUTesterDefaultVideoGenerator::_timeStampLabel(12.9999), QStringLiteral("12\u2033999"));
}

TEST(VUTesterDefaultVideoGenerator, FramesShowTheTurningPatternUnderTheLabel)
{
    const QImage first = VUTesterDefaultVideoGenerator::_imageForTime(0.0, {320, 180}, QStringLiteral("0\u2033000"));
    const QImage later = VUTesterDefaultVideoGenerator::_imageForTime(0.5, {320, 180}, QStringLiteral("0\u2033000"));
    ASSERT_EQ(first.size(), QSize(320, 180));
    // Far from the centre the wedges are red or the white background, and half a sector later
    // some of them have moved.
    EXPECT_NE(first, later);
    const QColor corner = first.pixelColor(2, 2);
    EXPECT_TRUE(corner == QColor(Qt::red) || corner == QColor(Qt::white)) << corner.name().toStdString();
}

TEST(VUTesterDefaultVideoGenerator, MakesAMovieOnceAndThenReturnsTheCachedFile)
{
    VUTesterDefaultVideoGenerator generator;
    generator.setVideoSize({150, 90}); // width rounds up to 160
    generator.setVideoDuration(0.2);
    generator.setVideoFPS(10.0);
    const QString suffix = uniqueSuffix();

    const Result made = generate(generator, suffix);
    ASSERT_FALSE(made.error) << made.error->debugDescription.toStdString();
    EXPECT_TRUE(made.path.endsWith(QStringLiteral("defaultvideo-160x90-0.2s-10.0fps-%1.mov").arg(suffix)));
    const MovieFileProbe probe = MovieFileProbe::probe(made.path);
    EXPECT_EQ(probe.encodedSize, QSize(160, 90));
    EXPECT_EQ(probe.frameTimes.size(), 3u);
    movie::MovieMetadata metadata;
    QString error;
    ASSERT_TRUE(movie::readMovieMetadata(made.path, &metadata, &error));
    EXPECT_EQ(metadata.publisher, QStringLiteral("Library Filler"));

    const QDateTime written = QFileInfo(made.path).lastModified();
    const Result cached = generate(generator, suffix);
    EXPECT_EQ(cached.path, made.path);
    EXPECT_FALSE(cached.error);
    EXPECT_EQ(cached.queueLabel, "com.vistra.VistraUITester.defaultvideogeneration");
    EXPECT_EQ(QFileInfo(made.path).lastModified(), written);
    QFile::remove(made.path);
}

TEST(VUTesterDefaultVideoGenerator, AFailedMovieIsLoggedAndDeleted)
{
    // Movies go to the temporary folder: a plain file standing where it should be makes the
    // movie fail.
    QTemporaryDir parent;
    QFile blocker(parent.filePath(QStringLiteral("not-a-folder")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const TemporaryFolder temporary(blocker.fileName());
    const Result failed = generate(tinyMovie(), uniqueSuffix());
    EXPECT_TRUE(failed.path.isEmpty());
    ASSERT_TRUE(failed.error);
    EXPECT_EQ(QDir(parent.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList{QStringLiteral("not-a-folder")});
}

// A TMPDIR naming no folder fails the movie with that folder's name; nothing lands in the
// current folder instead.
TEST(VUTesterDefaultVideoGenerator, AMissingTemporaryFolderFailsInsteadOfWritingHere)
{
    QTemporaryDir here;
    const QString previous = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(here.path()));
    const QString missing = here.filePath(QStringLiteral("gone"));
    Result result;
    {
        const TemporaryFolder temporary(missing);
        result = generate(tinyMovie(), uniqueSuffix());
    }
    QDir::setCurrent(previous);
    EXPECT_TRUE(result.path.isEmpty());
    ASSERT_TRUE(result.error);
    EXPECT_TRUE(result.error->debugDescription.contains(missing)) << result.error->debugDescription.toStdString();
    EXPECT_TRUE(QDir(here.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) << "a movie landed in the current folder";
}

// The cache names are predictable and the temporary folder may be shared: a link, or a file of
// another user, at a cache name is neither returned nor followed.
TEST(VUTesterDefaultVideoGenerator, ForeignEntriesAtTheCacheNameAreRefused)
{
    QTemporaryDir folder;
    const TemporaryFolder temporary(folder.path());
    const QString suffix = uniqueSuffix();
    const QString path = VUTesterDefaultVideoGenerator::_videoPath({160, 90}, 0.1, 10.0, suffix);
    const QString target = folder.filePath(QStringLiteral("elsewhere.mov"));
    ASSERT_TRUE(QFile::link(target, path)); // dangling
    Result result = generate(tinyMovie(), suffix);
    EXPECT_TRUE(result.path.isEmpty());
    ASSERT_TRUE(result.error);
    EXPECT_TRUE(result.error->debugDescription.contains(QStringLiteral("symbolic link"))) << result.error->debugDescription.toStdString();
    EXPECT_FALSE(QFile::exists(target)) << "the link was followed";
    EXPECT_EQ(QFileInfo(path).symLinkTarget(), target);

    // Another user's file (only a process that may give files away can set this up).
    QFile::remove(path);
    QFile foreign(path);
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("not a movie of ours");
    foreign.close();
    if (::chown(QFile::encodeName(path).constData(), 65534, 65534) != 0)
        GTEST_SKIP() << "cannot give a file to another user here";
    result = generate(tinyMovie(), suffix);
    EXPECT_TRUE(result.path.isEmpty());
    ASSERT_TRUE(result.error);
    EXPECT_TRUE(result.error->debugDescription.contains(QStringLiteral("another user"))) << result.error->debugDescription.toStdString();
}

// The sharing playground's movie: 3601 frames, three generators each. Their queues borrow the
// shared pool's threads, so the process's threads stay flat however long the movie.
TEST(VUTesterDefaultVideoGenerator, ALongMovieRunsOnAFlatNumberOfThreads)
{
    const int before = processThreadCount();
    std::atomic<bool> running{true};
    std::atomic<int> most{before};
    std::thread sampler([&] {
        while (running) {
            most = std::max(most.load(), processThreadCount());
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    });
    VUTesterDefaultVideoGenerator generator;
    generator.setVideoSize({32, 18});
    generator.setVideoDuration(360.0);
    generator.setVideoFPS(10.0);
    const Result made = generate(generator, uniqueSuffix());
    running = false;
    sampler.join();
    ASSERT_FALSE(made.error) << made.error->debugDescription.toStdString();
    EXPECT_EQ(MovieFileProbe::probe(made.path).frameTimes.size(), 3601u);
    EXPECT_LE(most.load() - before, 12) << "threads grew with the movie";
    QFile::remove(made.path);
}

TEST(VUTesterVideoGenerator, TheBaseMakesNothing)
{
    VUTesterVideoGenerator base;
    bool called = false;
    base.generateVideoWithCompletionHandler([&](const QString &, VUTesterOptionalError) { called = true; });
    EXPECT_FALSE(called);
}
