#include "AssetImporter.h"

#include "LibraryFolder.h"
#include "ResourceMetadata.h"
#include "VHAssetChangeRequest.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

namespace photos::detail {

namespace {

// A photo at least this many times longer than it is high (or high than long) is a panorama.
constexpr double kPanoramaAspect = 2.0;

const VHAssetCreationRequest::Resource *findResource(const VHAssetCreationRequest &request, VHAssetResourceType type)
{
    for (const auto &resource : request.resources())
        if (resource.type == type)
            return &resource;
    return nullptr;
}

bool checkFile(const QString &path, QString *error)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        *error = QStringLiteral("no such file: %1").arg(path);
        return false;
    }
    if (!info.isFile()) {
        *error = QStringLiteral("not a regular file: %1").arg(path);
        return false;
    }
    return true;
}

PreparedFile preparedFile(const VHAssetCreationRequest::Resource &resource, const QString &relativePath)
{
    const QFileInfo info(resource.path);
    const QString name = resource.options.originalFilename().isEmpty() ? info.fileName()
                                                                        : resource.options.originalFilename();
    return {info.absoluteFilePath(), resource.options.shouldMoveFile(),
            ResourceRecord{resource.type, relativePath, info.size(), name}};
}

} // namespace

void AssetImporter::captureTimes(const QDateTime &date, qint64 *creationMs, qint64 *localSeconds)
{
    const QDateTime wall = date.timeSpec() == Qt::UTC ? date.toLocalTime() : date;
    *creationMs = date.toMSecsSinceEpoch();
    *localSeconds = QDateTime(wall.date(), wall.time(), Qt::UTC).toSecsSinceEpoch();
}

bool AssetImporter::prepare(const VHAssetCreationRequest &request, PreparedAsset *asset, QString *error)
{
    const auto *photo = findResource(request, VHAssetResourceType::Photo);
    const auto *video = findResource(request, VHAssetResourceType::Video);
    const auto *paired = findResource(request, VHAssetResourceType::PairedVideo);
    const size_t count = request.resources().size();
    const bool usable = (count == 1 && (photo || video)) || (count == 2 && photo && paired);
    if (!usable) {
        *error = QStringLiteral("an asset needs one photo, one video, or one photo with its paired video");
        return false;
    }

    for (const auto &resource : request.resources())
        if (!checkFile(resource.path, error))
            return false;

    ResourceMetadata primary;
    if (photo && !readPhotoResource(photo->path, &primary, error)) {
        *error = QStringLiteral("not a readable photo: %1").arg(*error);
        return false;
    }
    if (video && !readMovieResource(video->path, &primary, error)) {
        *error = QStringLiteral("not a readable movie: %1").arg(*error);
        return false;
    }
    ResourceMetadata pairedMetadata;
    if (paired) {
        if (!readMovieResource(paired->path, &pairedMetadata, error)) {
            *error = QStringLiteral("not a readable movie: %1").arg(*error);
            return false;
        }
        if (primary.pairingIdentifier.isEmpty() || pairedMetadata.pairingIdentifier.isEmpty()) {
            *error = QStringLiteral("the %1 has no pairing identifier, so it cannot be paired")
                         .arg(primary.pairingIdentifier.isEmpty() ? QStringLiteral("photo") : QStringLiteral("video"));
            return false;
        }
        if (primary.pairingIdentifier != pairedMetadata.pairingIdentifier) {
            *error = QStringLiteral("the photo and the video belong to different pairs (%1 and %2)")
                         .arg(primary.pairingIdentifier, pairedMetadata.pairingIdentifier);
            return false;
        }
    }

    AssetRecord &record = asset->record;
    record.uuid = request.localIdentifierForCreatedAsset();
    record.mediaType = photo ? VHAssetMediaType::Image : VHAssetMediaType::Video;
    record.pixelWidth = primary.pixelSize.width();
    record.pixelHeight = primary.pixelSize.height();
    record.mediaSubtypes = VHAssetMediaSubtypeNone;
    if (photo) {
        const double longSide = std::max(record.pixelWidth, record.pixelHeight);
        const double shortSide = std::max(1, std::min(record.pixelWidth, record.pixelHeight));
        if (longSide / shortSide >= kPanoramaAspect)
            record.mediaSubtypes |= VHAssetMediaSubtypePhotoPanorama;
    }
    if (paired)
        record.mediaSubtypes |= VHAssetMediaSubtypePhotoMoving;

    const auto *primaryResource = photo ? photo : video;
    QDateTime captured = primary.captureDate.isValid() ? primary.captureDate : pairedMetadata.captureDate;
    if (!captured.isValid())
        captured = QFileInfo(primaryResource->path).lastModified();
    captureTimes(captured, &record.creationMs, &record.localSeconds);
    record.location = primary.location ? primary.location : pairedMetadata.location;
    record.duration = paired ? pairedMetadata.duration : primary.duration;
    record.pairingIdentifier = paired ? primary.pairingIdentifier : QString();
    record.imageDisplayTime = paired ? request.imageDisplayTime() : movie::MediaTime{};
    record.favorite = request.isFavorite();
    record.hidden = request.isHidden();
    record.addedMs = QDateTime::currentMSecsSinceEpoch();

    asset->files.clear();
    asset->files.push_back(preparedFile(
        *primaryResource, LibraryFolder::originalPathFor(record.uuid, QFileInfo(primaryResource->path).suffix())));
    if (paired)
        asset->files.push_back(preparedFile(
            *paired, LibraryFolder::originalPathFor(record.uuid + QStringLiteral("-paired"),
                                                    QFileInfo(paired->path).suffix())));
    return true;
}

} // namespace photos::detail
