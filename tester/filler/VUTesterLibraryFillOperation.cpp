#include "filler/VUTesterLibraryFillOperation.h"

#include "media/VUTesterConcentricRectsImageGenerator.h"
#include "media/VUTesterLayeredImageGenerator.h"
#include "media/VUTesterOrientedImageGenerator.h"
#include "media/VUTesterPhotoWriter.h"
#include "media/VUTesterRadialPatternImageGenerator.h"
#include "media/VUTesterSolidColorImageGenerator.h"
#include "media/VUTesterVideoWriter.h"
#include "media/VUTesterWatermarkImageGenerator.h"

#include "dispatch/Dispatch.h"
#include "graphics/ImageOrientation.h"
#include "photos/PrivateFolders.h"
#include "photos/VHAssetChangeRequest.h"
#include "photos/VHPhotoLibrary.h"
#include "photos/VHSystemLibraryPathManager.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QUuid>

#include <cmath>

Q_LOGGING_CATEGORY(lcFill, "vistra.filler")

namespace {

// Process-wide counters shared by every operation, never reset.
std::atomic<long> g_labelCounter{1};
std::atomic<long> g_colorCounter{0};
std::atomic<unsigned long> g_fileBackedNameCounter{0};

// Seconds since 1 January 2001, the reference date of the time stamps.
double secondsSinceReferenceDate()
{
    static const qint64 reference = QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
    return double(QDateTime::currentMSecsSinceEpoch() - reference) / 1000.0;
}

graphics::Color withAlpha(const graphics::Color &color, double alpha)
{
    const graphics::Color rgb = color.convertedToDeviceRGB();
    return graphics::Color::rgb(rgb.component(0), rgb.component(1), rgb.component(2), alpha);
}

graphics::StyledText watermarkText(const QString &text, double fontSize)
{
    graphics::TextAttributes attributes;
    attributes.fontSize = fontSize;
    attributes.foregroundColor = graphics::Color::white();
    return graphics::StyledText(text, attributes);
}

VUTesterOptionalError errorWithText(const QString &text)
{
    return VUTesterError{text};
}

QString fileBackedName(unsigned long counter)
{
    return QString::asprintf("IMG_%04lu", counter);
}

// A new file in this process's temporary folder, which the next process removes should this one
// be killed before the file moves on.
QString temporaryURL(const QString &suffix)
{
    return QDir(photos::processTemporaryFolder(nullptr)).filePath(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + QLatin1Char('.') + suffix);
}

void removeFiles(const QStringList &paths)
{
    for (const QString &path : paths)
        if (!path.isEmpty())
            QFile::remove(path);
}

// Moves a file without ever replacing one that is there.
bool moveFile(const QString &from, const QString &to, VUTesterOptionalError *error)
{
    if (QFileInfo::exists(to)) {
        *error = errorWithText(QStringLiteral("%1 already exists").arg(to));
        return false;
    }
    QFile file(from);
    if (!file.rename(to)) {
        *error = errorWithText(QStringLiteral("cannot move %1 to %2: %3").arg(from, to, file.errorString()));
        return false;
    }
    *error = std::nullopt;
    return true;
}

} // namespace

std::shared_ptr<VUTesterLibraryFillOperation> VUTesterLibraryFillOperation::create(const VUTesterLibraryFillerSettings *settings)
{
    return std::shared_ptr<VUTesterLibraryFillOperation>(new VUTesterLibraryFillOperation(settings));
}

VUTesterLibraryFillOperation::VUTesterLibraryFillOperation(const VUTesterLibraryFillerSettings *settings)
    : _settings(std::make_unique<VUTesterLibraryFillerSettingsValueCombinationEnumerator>(settings))
{
}

void VUTesterLibraryFillOperation::runWithCompletionHandler(CompletionHandler handler)
{
    m_isRunning = true;
    _assetIndex = 0;
    _completionHandler = std::move(handler);
    _addNextAsset();
}

void VUTesterLibraryFillOperation::cancel()
{
    m_canceled = true;
}

void VUTesterLibraryFillOperation::_addNextAsset()
{
    const qint64 index = _assetIndex;
    const qint64 count = _settings->numberOfAssetsToAdd();
    if (index >= count || m_canceled) {
        m_isRunning = false;
        if (CompletionHandler handler = std::exchange(_completionHandler, nullptr))
            handler();
        return;
    }
    _assetIndex = index + 1;
    m_current = AssetReport{index + 1, count, _settings->media(), _assetSize(), false, QString(), QString(), QStringList()};
    auto self = shared_from_this();
    _addAssetWithCompletionHandler([self, count](bool success, const VUTesterOptionalError &error) {
        if (!success) {
            qCWarning(lcFill).noquote() << QStringLiteral("couldn't create asset: %1").arg(error ? error->debugDescription : QStringLiteral("(null)"));
            self->cancel();
        }
        self->report(success, error);
        self->m_progress = double(self->_assetIndex) / double(count);
        self->_settings->nextCombination();
        // The next asset starts afresh on the global queue rather than deeper in this stack, so
        // runs of any length use constant stack and never hold the library's change queue.
        dispatch::Queue::global()->async([self] { self->_addNextAsset(); });
    });
}

void VUTesterLibraryFillOperation::report(bool success, const VUTesterOptionalError &error)
{
    m_current.success = success;
    m_current.error = error ? error->debugDescription : QString();
    if (m_observer)
        m_observer(m_current);
}

QSizeF VUTesterLibraryFillOperation::_assetSize() const
{
    const double longSide = double(_settings->longSide());
    const double shortSide = std::round(longSide / _settings->aspectRatio());
    return _settings->orientation() == 1 ? QSizeF(shortSide, longSide) : QSizeF(longSide, shortSide);
}

void VUTesterLibraryFillOperation::_addAssetWithCompletionHandler(AssetCompletionHandler completion)
{
    QString reason;
    if (photos::processTemporaryFolder(&reason).isEmpty()) {
        completion(false, errorWithText(reason));
        return;
    }
    VUTesterOptionalError nameError;
    if (_settings->fillDestination() == 1 && !_checkNextFileBackedName(&nameError)) {
        completion(false, nameError);
        return;
    }
    const QSizeF size = m_current.size;
    switch (m_current.media) {
    case 0:
        _addPhotoWithSize(size, std::move(completion));
        break;
    case 1:
        _addVideoWithSize(size, std::move(completion));
        break;
    case 2:
        _addLiveVideoWithSize(size, std::move(completion));
        break;
    default:
        // Not reachable from the settings screen; a run with such a value never completes.
        break;
    }
}

graphics::Color VUTesterLibraryFillOperation::_nextColor()
{
    const long counter = g_colorCounter.fetch_add(1);
    const float scaled = float(counter) * 0.02f;
    const float hue = scaled - std::floor(scaled);
    return graphics::Color::hsb(hue, 1.0, 1.0, 1.0);
}

graphics::ImagePtr VUTesterLibraryFillOperation::_imageWithSize(QSizeF size, const graphics::Color &color, const QString &label, qint64 orientation) const
{
    VUTesterImageGeneratorPtr content;
    switch (_settings->content()) {
    case 0: {
        auto solid = std::make_shared<VUTesterSolidColorImageGenerator>();
        solid->setColor(color);
        solid->setBorderColor(withAlpha(color, 0.5));
        solid->setBorderSize(QSizeF(32, 32));
        content = solid;
        break;
    }
    case 1: {
        auto rects = std::make_shared<VUTesterConcentricRectsImageGenerator>();
        rects->setRectsColor(color);
        content = rects;
        break;
    }
    case 2: {
        auto radial = std::make_shared<VUTesterRadialPatternImageGenerator>();
        radial->setColor(color);
        content = radial;
        break;
    }
    default:
        break;
    }

    const double shorter = std::min(size.width(), size.height());
    auto labelMark = std::make_shared<VUTesterWatermarkImageGenerator>();
    labelMark->setWatermarkAttributedString(watermarkText(label, shorter * 0.25));
    labelMark->setWatermarkLocation(0);

    // The random part keeps two pictures made in the same millisecond apart.
    const QString stamp = QString::asprintf("%0.3f.%03u", secondsSinceReferenceDate(), QRandomGenerator::global()->bounded(1000u));
    auto stampMark = std::make_shared<VUTesterWatermarkImageGenerator>();
    stampMark->setWatermarkAttributedString(watermarkText(stamp, shorter * double(0.02f)));
    stampMark->setWatermarkLocation(1);

    std::vector<VUTesterImageGeneratorPtr> layers;
    if (content)
        layers.push_back(content);
    layers.push_back(stampMark);
    layers.push_back(labelMark);
    auto layered = std::make_shared<VUTesterLayeredImageGenerator>();
    layered->setImageGenerators(layers);

    auto oriented = std::make_shared<VUTesterOrientedImageGenerator>();
    oriented->setImageGenerator(layered);
    oriented->setImageOrientation(orientation);
    oriented->setImageSize(size);
    return oriented->generatedImage();
}

std::optional<VUTesterLocation> VUTesterLibraryFillOperation::currentLocation() const
{
    double latitude = 0, longitude = 0;
    if (!TWLocationFromValue(_settings->location(), &latitude, &longitude))
        return std::nullopt;
    return VUTesterLocation{latitude, longitude};
}

void VUTesterLibraryFillOperation::_addPhotoWithSize(QSizeF size, AssetCompletionHandler completion)
{
    const graphics::Color color = _nextColor();
    const QString label = QStringLiteral("#%1").arg(g_labelCounter.fetch_add(1));
    const graphics::ImagePtr image = _imageWithSize(size, color, label, _settings->imageOrientation());
    VUTesterPhotoWriter writer;
    writer.setOutputURL(temporaryURL(QStringLiteral("jpg")));
    writer.setImage(image ? image->pixels() : QImage());
    writer.setLocation(currentLocation());
    VUTesterOptionalError error;
    if (!writer.writeImageWithError(&error)) {
        qCWarning(lcFill).noquote() << QStringLiteral("Failed to write image with error: %1").arg(error ? error->debugDescription : QString());
        completion(false, error);
        return;
    }
    _saveAssetWithImageURL(writer.outputURL(), QString(), 0, std::move(completion));
}

QSizeF VUTesterLibraryFillOperation::videoFrameSize(QSizeF requested, qint64 imageOrientation)
{
    const int exif = graphics::exifOrientationForValue(imageOrientation);
    QSizeF encoded = graphics::transformedSize(requested, graphics::inverseExifOrientation(exif));
    if (encoded.height() > 1080) {
        encoded.setWidth(encoded.width() * 1080.0 / encoded.height());
        encoded.setHeight(1080);
    }
    encoded.setWidth(std::ceil(encoded.width() / 16.0) * 16.0);
    return graphics::transformedSize(encoded, exif);
}

std::shared_ptr<VUTesterVideoWriter> VUTesterLibraryFillOperation::_movieWriter(QSizeF size, const graphics::Color &color, qint64 orientation,
                                                                              const QString &pairingIdentifier)
{
    const QSizeF frameSize = videoFrameSize(size, orientation);
    const int exif = graphics::exifOrientationForValue(orientation);
    auto writer = std::make_shared<VUTesterVideoWriter>();
    writer->setOutputURL(temporaryURL(QStringLiteral("mov")));
    writer->setOutputDuration(3.0);
    writer->setTransform(graphics::exifOrientationTransform(exif));
    writer->setLocation(currentLocation());
    const bool stirShot = !pairingIdentifier.isEmpty();
    if (stirShot) {
        writer->setOutputFPS(15.0);
        writer->setStirShotPairingIdentifier(pairingIdentifier);
    }
    auto self = shared_from_this();
    writer->setFrameGenerator([self, frameSize, color, orientation, stirShot](double t) -> QImage {
        // In a Stir Shot the moment the still shows has no frame of its own.
        if (stirShot && t >= 1.4 && t < 1.5)
            return QImage();
        const double pulse = std::pow(std::cos(t / 2.5 * M_PI), 2.0) * 0.5 + 0.5;
        const QString label = QStringLiteral("%1″%2").arg(int(t)).arg(qint64(std::floor(t * 1000.0)) % 1000, 3, 10, QLatin1Char('0'));
        const graphics::ImagePtr image = self->_imageWithSize(frameSize, withAlpha(color, pulse), label, orientation);
        return image ? image->pixels() : QImage();
    });
    return writer;
}

void VUTesterLibraryFillOperation::_addVideoWithSize(QSizeF size, AssetCompletionHandler completion)
{
    const graphics::Color color = _nextColor();
    auto writer = _movieWriter(size, color, _settings->imageOrientation(), QString());
    auto self = shared_from_this();
    writer->createVideoWithCompletionHandler([self, writer, completion](VUTesterOptionalError error) {
        if (error) {
            removeFiles({writer->outputURL()});
            completion(false, error);
            return;
        }
        self->_saveAssetWithImageURL(QString(), writer->outputURL(), 0, completion);
    });
}

void VUTesterLibraryFillOperation::_addLiveVideoWithSize(QSizeF size, AssetCompletionHandler completion)
{
    const QString pairingIdentifier = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    const qint64 orientation = _settings->imageOrientation();
    const std::optional<VUTesterLocation> location = currentLocation();
    auto self = shared_from_this();

    struct Halves {
        QString photoURL, videoURL;
        VUTesterOptionalError photoError, videoError;
    };
    auto halves = std::make_shared<Halves>();
    auto group = std::make_shared<dispatch::Group>();

    group->async(*dispatch::Queue::global(), [self, halves, size, orientation, location, pairingIdentifier] {
        const graphics::Color color = _nextColor();
        const QString label = QStringLiteral("#%1").arg(g_labelCounter.fetch_add(1));
        const graphics::ImagePtr image = self->_imageWithSize(size, color, label, orientation);
        VUTesterPhotoWriter writer;
        writer.setOutputURL(temporaryURL(QStringLiteral("jpg")));
        writer.setImage(image ? image->pixels() : QImage());
        writer.setLocation(location);
        writer.setStirShotPairingIdentifier(pairingIdentifier);
        if (writer.writeImageWithError(&halves->photoError))
            halves->photoURL = writer.outputURL();
        else
            qCWarning(lcFill).noquote() << QStringLiteral("Failed to write image with error: %1").arg(halves->photoError ? halves->photoError->debugDescription : QString());
    });
    // The movie's completion may arrive on the writer's own thread: the group is left only then.
    group->enter();
    dispatch::Queue::global()->async([self, halves, group, size, orientation, pairingIdentifier] {
        auto writer = self->_movieWriter(size, _nextColor(), orientation, pairingIdentifier);
        writer->createVideoWithCompletionHandler([halves, group, writer](VUTesterOptionalError error) {
            if (error) {
                halves->videoError = error;
                removeFiles({writer->outputURL()});
            } else
                halves->videoURL = writer->outputURL();
            group->leave();
        });
    });
    group->notify(dispatch::Queue::main(), [self, halves, group, completion] {
        if (!halves->photoURL.isEmpty() && !halves->videoURL.isEmpty()) {
            self->_saveAssetWithImageURL(halves->photoURL, halves->videoURL, 1.5, completion);
            return;
        }
        // One half failed: remove the other so nothing is left half-made.
        removeFiles({halves->photoURL, halves->videoURL});
        completion(false, halves->photoError ? halves->photoError : halves->videoError);
    });
}

void VUTesterLibraryFillOperation::_saveAssetWithImageURL(const QString &imageURL, const QString &videoURL, double imageDisplayTime,
                                                          AssetCompletionHandler completion)
{
    if (imageURL.isEmpty() && videoURL.isEmpty()) {
        completion(false, std::nullopt);
        return;
    }
    switch (_settings->fillDestination()) {
    case 0:
        _saveToLibrary(imageURL, videoURL, imageDisplayTime, std::move(completion));
        break;
    case 1:
        _saveToFileBacked(imageURL, videoURL, std::move(completion));
        break;
    default:
        // Not offered by the screen; such a run never completes.
        break;
    }
}

void VUTesterLibraryFillOperation::_saveToLibrary(const QString &imageURL, const QString &videoURL, double imageDisplayTime,
                                                  AssetCompletionHandler completion)
{
    auto self = shared_from_this();
    auto identifier = std::make_shared<QString>();
    VHPhotoLibrary::sharedPhotoLibrary()->performChanges(
        [imageURL, videoURL, imageDisplayTime, identifier] {
            VHAssetCreationRequest *request = VHAssetCreationRequest::creationRequestForAsset();
            VHAssetResourceCreationOptions options;
            options.setShouldMoveFile(true);
            if (!imageURL.isEmpty()) {
                request->addResourceWithType(VHAssetResourceType::Photo, imageURL, options);
                if (!videoURL.isEmpty()) {
                    request->addResourceWithType(VHAssetResourceType::PairedVideo, videoURL, options);
                    request->setImageDisplayTime(movie::MediaTime::fromSeconds(imageDisplayTime, 60000));
                }
            } else {
                request->addResourceWithType(VHAssetResourceType::Video, videoURL, options);
            }
            *identifier = request->localIdentifierForCreatedAsset();
        },
        [self, imageURL, videoURL, identifier, completion](bool success, const VHError &error) {
            if (success) {
                self->m_current.identifier = *identifier;
            } else {
                // A failed change leaves the files where they were.
                removeFiles({imageURL, videoURL});
            }
            completion(success, success ? VUTesterOptionalError() : errorWithText(error.debugDescription()));
        });
}

void VUTesterLibraryFillOperation::_saveToFileBacked(const QString &imageURL, const QString &videoURL, AssetCompletionHandler completion)
{
    VHError directoryError;
    const QString directory = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(true, &directoryError);
    if (directory.isEmpty()) {
        removeFiles({imageURL, videoURL});
        completion(false, errorWithText(directoryError.debugDescription()));
        return;
    }
    const QString name = fileBackedName(g_fileBackedNameCounter.fetch_add(1) + 1);
    VUTesterOptionalError error;
    QStringList moved;
    for (const QString &file : {imageURL, videoURL}) {
        if (file.isEmpty())
            continue;
        const QString target = QDir(directory).filePath(name + QLatin1Char('.') + QFileInfo(file).suffix());
        if (!moveFile(file, target, &error)) {
            // Half a pair is no asset: take back what moved and drop what is left.
            removeFiles(moved + QStringList{imageURL, videoURL});
            completion(false, error);
            return;
        }
        moved << target;
    }
    m_current.files = moved;
    completion(true, std::nullopt);
}

bool VUTesterLibraryFillOperation::_checkNextFileBackedName(VUTesterOptionalError *error) const
{
    const QString directory = VHSystemLibraryPathManager::sharedInstance().temporaryFileBackedDebugDirectory(false);
    const QString name = fileBackedName(g_fileBackedNameCounter.load() + 1);
    const QStringList taken = QDir(directory).entryList({name + QStringLiteral(".*")}, QDir::AllEntries | QDir::Hidden | QDir::System);
    if (taken.isEmpty())
        return true;
    *error = errorWithText(QStringLiteral("%1 is already in %2 from an earlier fill (names start at IMG_0001 each time the program "
                                          "starts): clear the folder with \"Delete File Backed\" (vistra-tester fill --delete-file-backed) first")
                               .arg(taken.first(), directory));
    return false;
}
