#pragma once
// What the library reads from a file it is given, in one call per kind of file, on top of the
// photo and movie metadata readers.

#include "VHTypes.h"

#include <QDateTime>
#include <QSize>
#include <QString>

#include <optional>

namespace photos::detail {

struct ResourceMetadata {
    QDateTime captureDate; // invalid when the file has none
    std::optional<VHLocation> location;
    QSize pixelSize; // as displayed, orientation applied
    double duration = 0;
    QString pairingIdentifier;
};

// False with a clear error for a file that is not a readable photo (or movie).
bool readPhotoResource(const QString &path, ResourceMetadata *metadata, QString *error);
bool readMovieResource(const QString &path, ResourceMetadata *metadata, QString *error);

} // namespace photos::detail
