#include "VUTesterDefaultVideoGenerator.h"

#include "VUTesterLayeredImageGenerator.h"
#include "VUTesterMediaWritersLogging.h"
#include "VUTesterRadialPatternImageGenerator.h"
#include "VUTesterTemporaryDirectory.h"
#include "VUTesterVideoWriter.h"
#include "VUTesterWatermarkImageGenerator.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const char kModuleIdentifier[] = "com.vistra.VistraUITester";
constexpr double kMaxHeight = 1080.0;

enum class CacheEntry { Missing, Ours, Refused };

// What stands at a cache path, looked at without following a link. The names are predictable
// and the temporary folder may be shared: only a plain file of this user is a cached movie.
CacheEntry cacheEntry(const QString &path, QString *reason)
{
    struct stat info;
    if (::lstat(QFile::encodeName(path).constData(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR)
            return CacheEntry::Missing; // making it then says what is wrong with the folder
        *reason = QString::fromLocal8Bit(std::strerror(errno));
    } else if (S_ISLNK(info.st_mode)) {
        *reason = QStringLiteral("it is a symbolic link");
    } else if (!S_ISREG(info.st_mode)) {
        *reason = QStringLiteral("it is not a plain file");
    } else if (info.st_uid != ::geteuid()) {
        *reason = QStringLiteral("it belongs to another user");
    } else {
        return CacheEntry::Ours;
    }
    return CacheEntry::Refused;
}

} // namespace

VUTesterDefaultVideoGenerator::VUTesterDefaultVideoGenerator()
{
    setVideoSize(QSizeF(1920.0, 1080.0));
    setVideoDuration(5.0);
    setVideoFPS(24.0);
}

const dispatch::QueuePtr &VUTesterDefaultVideoGenerator::_queue()
{
    static const dispatch::QueuePtr queue = dispatch::Queue::createSerial(std::string(kModuleIdentifier) + ".defaultvideogeneration");
    return queue;
}

QSizeF VUTesterDefaultVideoGenerator::_normalizedVideoSize(QSizeF size)
{
    double w = size.width(), h = size.height();
    if (h > kMaxHeight) {
        w = w / (h / kMaxHeight);
        h = kMaxHeight;
    }
    return QSizeF(std::ceil(w * 0.0625) * 16.0, std::round(h));
}

QString VUTesterDefaultVideoGenerator::_videoPath(QSizeF normalizedSize, double duration, double fps, const QString &suffix)
{
    QString name = QLatin1String(kModuleIdentifier) + QLatin1Char('.')
                   + QString::asprintf("defaultvideo-%.0fx%.0f-%.1fs-%.1ffps", normalizedSize.width(), normalizedSize.height(), duration, fps);
    if (!suffix.isEmpty())
        name += QStringLiteral("-%1").arg(suffix);
    return VUTesterTemporaryFilePath(name + QStringLiteral(".mov"));
}

QString VUTesterDefaultVideoGenerator::_timeStampLabel(double time)
{
    return QString::asprintf("%i\u2033%03i", int(std::floor(time)), int(qint64(std::floor(time * 1000.0)) % 1000));
}

void VUTesterDefaultVideoGenerator::generateVideoWithFileNameSuffix(const QString &suffix, CompletionHandler handler)
{
    const QSizeF size = _normalizedVideoSize(videoSize());
    const double duration = videoDuration();
    const double fps = videoFPS();
    _queue()->async([size, duration, fps, suffix, handler = std::move(handler)] {
        const QString path = _videoPath(size, duration, fps, suffix);
        QString reason;
        switch (cacheEntry(path, &reason)) {
        case CacheEntry::Ours:
            handler(path, std::nullopt);
            return;
        case CacheEntry::Refused: {
            const VUTesterError error{QStringLiteral("cannot use %1: %2").arg(path, reason)};
            qCWarning(lcVUTesterWriters, "couldn't create video: %s", qUtf8Printable(error.debugDescription));
            handler(QString(), error);
            return;
        }
        case CacheEntry::Missing:
            break;
        }
        VUTesterVideoWriter writer;
        writer.setOutputURL(path);
        writer.setOutputDuration(duration);
        writer.setOutputFPS(fps);
        writer.setFrameGenerator([size](double t) { return _imageForTime(t, size, _timeStampLabel(t)); });
        dispatch::Semaphore finished;
        writer.createVideoWithCompletionHandler([&](VUTesterOptionalError error) {
            if (error) {
                qCWarning(lcVUTesterWriters, "couldn't create video: %s", qUtf8Printable(error->debugDescription));
                QFile::remove(path);
                handler(QString(), error);
            } else {
                handler(path, std::nullopt);
            }
            finished.signal();
        });
        finished.wait();
    });
}

QImage VUTesterDefaultVideoGenerator::_imageForTime(double time, QSizeF size, const QString &label)
{
    auto radial = std::make_shared<VUTesterRadialPatternImageGenerator>();
    radial->setColor(graphics::Color::red());
    radial->setPhase(time);

    auto watermark = std::make_shared<VUTesterWatermarkImageGenerator>();
    graphics::TextAttributes attributes;
    // The bundled font's digits share one width, so the running time stamp stays still.
    attributes.fontSize = std::min(size.width(), size.height()) * 0.25;
    watermark->setWatermarkAttributedString(graphics::StyledText(label, attributes));
    watermark->setWatermarkLocation(0);

    auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
    layered->setImageGenerators({radial, watermark});
    layered->setImageSize(size);
    const graphics::ImagePtr image = layered->generatedImage();
    return image ? image->pixels() : QImage();
}
