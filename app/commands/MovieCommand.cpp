// vistra-tester movie [--size WxH] [--duration S] [--fps F] [--suffix TEXT]
// Makes (or finds in the cache) the default test movie and prints its path.

#include "Commands.h"
#include "commands/MediaOptions.h"

#include "media/VUTesterDefaultVideoGenerator.h"

#include <dispatch/Dispatch.h>

#include <QCommandLineParser>
#include <QTextStream>

namespace app {
namespace {

const char *const kMovie = "movie";
// Frames are drawn one by one: ten minutes at 240 frames per second is already 144000 of them.
constexpr NumberRange kDuration{0, 600};
// Frame times are counted in whole ticks of the frame rate, so below 1 there is no time scale.
constexpr NumberRange kFPS{1, 240};

} // namespace

int runMovieCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Makes the default test movie (a turning pattern with a running time stamp) in the temporary folder and prints its path. A movie of the same parameters is reused."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("size"), QStringLiteral("Frame size, each side 1 to 15000 (default 1920x1080; height capped at 1080, width rounded up to 16)."), QStringLiteral("WxH")},
        {QStringLiteral("duration"), QStringLiteral("Length in seconds, 0 to 600 (default 5)."), QStringLiteral("S")},
        {QStringLiteral("fps"), QStringLiteral("Frames per second, 1 to 240 (default 24)."), QStringLiteral("F")},
        {QStringLiteral("suffix"), QStringLiteral("Text added to the file name."), QStringLiteral("TEXT")},
    });
    if (const int status = parseCommandArguments(parser, kMovie, arguments); status >= 0)
        return status;

    VUTesterDefaultVideoGenerator generator;
    QString message;
    QSizeF size = generator.videoSize();
    double duration = generator.videoDuration(), fps = generator.videoFPS();
    if (parser.isSet(QStringLiteral("size")) && !parseSizeOption(QStringLiteral("size"), parser.value(QStringLiteral("size")), 1, &size, &message))
        return usageError(kMovie, message);
    if (parser.isSet(QStringLiteral("duration")) && !parseNumberOption(QStringLiteral("duration"), parser.value(QStringLiteral("duration")), kDuration, &duration, &message))
        return usageError(kMovie, message);
    if (parser.isSet(QStringLiteral("fps")) && !parseNumberOption(QStringLiteral("fps"), parser.value(QStringLiteral("fps")), kFPS, &fps, &message))
        return usageError(kMovie, message);
    const QString suffix = parser.value(QStringLiteral("suffix"));
    if (suffix.contains(QLatin1Char('/')))
        return usageError(kMovie, QStringLiteral("--suffix cannot contain '/'"));
    generator.setVideoSize(size);
    generator.setVideoDuration(duration);
    generator.setVideoFPS(fps);

    QString path;
    VUTesterOptionalError error;
    dispatch::Semaphore done;
    generator.generateVideoWithFileNameSuffix(suffix, [&](const QString &moviePath, VUTesterOptionalError movieError) {
        path = moviePath;
        error = movieError;
        done.signal();
    });
    done.wait();
    if (path.isEmpty())
        return failure(kMovie, QStringLiteral("Video generation failed: %1").arg(error ? error->debugDescription : QStringLiteral("unknown error")));
    QTextStream(stdout) << path << Qt::endl;
    return ExitOk;
}

} // namespace app
