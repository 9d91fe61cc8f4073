#include "ResourceMetadata.h"

#include "graphics/ImageOrientation.h"
#include "imageio/PhotoMetadata.h"
#include "movie/MovieMetadata.h"

#include <QImageReader>

namespace photos::detail {

bool readPhotoResource(const QString &path, ResourceMetadata *metadata, QString *error)
{
    imageio::PhotoMetadata photo;
    if (!imageio::readPhotoMetadata(path, &photo, error))
        return false;
    metadata->captureDate = photo.captureDate;
    if (photo.hasLocation)
        metadata->location = VHLocation{photo.latitude, photo.longitude};
    metadata->pixelSize = graphics::transformedSize(QSizeF(photo.pixelSize), photo.exifOrientation).toSize();
    metadata->duration = 0;
    metadata->pairingIdentifier = photo.pairingIdentifier;
    return true;
}

bool readMovieResource(const QString &path, ResourceMetadata *metadata, QString *error)
{
    // libavformat opens a still image as a one-frame stream: a picture is not a movie.
    if (!QImageReader::imageFormat(path).isEmpty()) {
        *error = QStringLiteral("%1: a still image, not a movie").arg(path);
        return false;
    }
    movie::MovieMetadata movie;
    if (!movie::readMovieMetadata(path, &movie, error))
        return false;
    if (movie.pixelSize.isEmpty()) {
        *error = QStringLiteral("%1: the movie has no picture size").arg(path);
        return false;
    }
    metadata->captureDate = movie.creationDate;
    if (movie.hasLocation)
        metadata->location = VHLocation{movie.latitude, movie.longitude};
    metadata->pixelSize = movie.pixelSize;
    metadata->duration = movie.duration;
    metadata->pairingIdentifier = movie.pairingIdentifier;
    return true;
}

} // namespace photos::detail
