#include "VUTesterPhotoWriter.h"

#include "VUTesterTemporaryDirectory.h"

#include <imageio/ImageDestination.h>
#include <imageio/PhotoMetadata.h>

#include <QUuid>

#include <cmath>

namespace {

imageio::GPSProperties gpsProperties(const VUTesterLocation &location)
{
    return {std::fabs(location.latitude), location.latitude >= 0 ? QStringLiteral("N") : QStringLiteral("S"),
            std::fabs(location.longitude), location.longitude >= 0 ? QStringLiteral("E") : QStringLiteral("W")};
}

} // namespace

VUTesterPhotoWriter::VUTesterPhotoWriter()
    : m_outputURL(VUTesterTemporaryFilePath(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + QStringLiteral(".jpg"))),
      m_date(QDateTime::currentDateTime())
{
}

const VUTesterDateFormatter &VUTesterPhotoWriter::_exifDateFormatter()
{
    // The POSIX locale keeps the digits and separators fixed whatever the user's settings.
    static const VUTesterDateFormatter formatter(QStringLiteral("yyyy:MM:dd HH:mm:ss"), QLocale::c());
    return formatter;
}

bool VUTesterPhotoWriter::writeImageWithError(VUTesterOptionalError *error)
{
    QString reason;
    std::unique_ptr<imageio::ImageDestination> destination =
        imageio::ImageDestination::create(m_outputURL, imageio::ImageDestination::Type::JPEG, &reason);
    VUTesterOptionalError failure;
    if (!destination)
        failure = VUTesterError{QStringLiteral("Failed to create DQImageDestination")};

    imageio::ImageProperties properties;
    if (destination && m_location)
        properties.gps = gpsProperties(*m_location);
    if (destination && m_date.isValid())
        properties.dateTimeOriginal = _exifDateFormatter().stringFromDate(m_date);
    if (destination && !m_stirShotPairingIdentifier.isEmpty()) {
        QString metadataError;
        if (!imageio::writePairingIdentifierMakerNote(m_stirShotPairingIdentifier, &properties.makerNote, &metadataError))
            failure = VUTesterError{metadataError};
    }

    if (!failure && m_image.isNull())
        failure = VUTesterError{QStringLiteral("Failed to create an image and add to image destination")};
    if (!failure) {
        destination->addImage(m_image, properties);
        if (!destination->finalize(&reason))
            failure = VUTesterError{QStringLiteral("Failed to finalize image destination")};
    }
    if (error)
        *error = failure;
    return !failure;
}
