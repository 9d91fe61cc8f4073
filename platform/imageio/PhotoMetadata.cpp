#include "PhotoMetadata.h"

#include "ExifProperties.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <exiv2/error.hpp>
#include <exiv2/exif.hpp>
#include <exiv2/image.hpp>

namespace imageio {
namespace {

const QByteArray kPairingPrefix("VistraContentIdentifier\0", 24);
constexpr int kMaxIdentifierBytes = 255;

// Decimal degrees from the three rationals of a GPS coordinate; false if they are not three
// valid rationals.
bool decimalDegrees(const Exiv2::Exifdatum &datum, double *degrees)
{
    if (datum.count() != 3)
        return false;
    double sum = 0;
    const double scale[3] = {1.0, 60.0, 3600.0};
    for (long i = 0; i < 3; ++i) {
        const Exiv2::Rational part = datum.toRational(i);
        if (part.second == 0)
            return false;
        sum += double(part.first) / double(part.second) / scale[i];
    }
    *degrees = sum;
    return true;
}

QString text(const Exiv2::ExifData &exif, const char *key)
{
    const auto it = exif.findKey(Exiv2::ExifKey(key));
    return it == exif.end() ? QString() : QString::fromStdString(it->toString()).trimmed();
}

void readLocation(const Exiv2::ExifData &exif, PhotoMetadata *metadata)
{
    const auto latitude = exif.findKey(Exiv2::ExifKey("Exif.GPSInfo.GPSLatitude"));
    const auto longitude = exif.findKey(Exiv2::ExifKey("Exif.GPSInfo.GPSLongitude"));
    if (latitude == exif.end() || longitude == exif.end())
        return;
    double lat = 0, lon = 0;
    if (!decimalDegrees(*latitude, &lat) || !decimalDegrees(*longitude, &lon))
        return;
    metadata->hasLocation = true;
    metadata->latitude = text(exif, "Exif.GPSInfo.GPSLatitudeRef") == QLatin1String("S") ? -lat : lat;
    metadata->longitude = text(exif, "Exif.GPSInfo.GPSLongitudeRef") == QLatin1String("W") ? -lon : lon;
}

} // namespace

bool writePairingIdentifierMakerNote(const QString &identifier, QByteArray *makerNote, QString *error)
{
    const QByteArray bytes = identifier.toUtf8();
    const bool printable = std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20 && c < 0x7f; });
    if (bytes.isEmpty() || bytes.size() > kMaxIdentifierBytes || !printable) {
        if (error)
            *error = QStringLiteral("invalid pairing identifier \"%1\": it must be 1 to %2 printable ASCII characters")
                         .arg(identifier)
                         .arg(kMaxIdentifierBytes);
        return false;
    }
    *makerNote = kPairingPrefix + bytes;
    return true;
}

QString pairingIdentifierFromMakerNote(const QByteArray &makerNote)
{
    if (!makerNote.startsWith(kPairingPrefix))
        return {};
    return QString::fromUtf8(makerNote.mid(kPairingPrefix.size()));
}

bool readPhotoMetadata(const QString &path, PhotoMetadata *metadata, QString *error)
{
    initializeExiv2();
    *metadata = PhotoMetadata();
    if (!QFileInfo(path).isFile()) {
        if (error)
            *error = QStringLiteral("%1: no such file").arg(path);
        return false;
    }
    try {
        auto image = Exiv2::ImageFactory::open(QFile::encodeName(path).toStdString());
        const std::string type = image->mimeType();
        if (type != "image/jpeg" && type != "image/png") {
            if (error)
                *error = QStringLiteral("%1: not a JPEG or PNG image (%2)").arg(path, QString::fromStdString(type));
            return false;
        }
        image->readMetadata();
        metadata->pixelSize = QSize(image->pixelWidth(), image->pixelHeight());
        if (metadata->pixelSize.isEmpty()) {
            if (error)
                *error = QStringLiteral("%1: the image has no readable pixel size").arg(path);
            return false;
        }
        const Exiv2::ExifData &exif = image->exifData();
        const QString date = text(exif, "Exif.Photo.DateTimeOriginal");
        if (!date.isEmpty())
            metadata->captureDate = QDateTime::fromString(date, QStringLiteral("yyyy:MM:dd HH:mm:ss"));
        readLocation(exif, metadata);
        const auto orientation = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
        if (orientation != exif.end() && orientation->count() > 0)
            metadata->exifOrientation = int(orientation->toLong());
        const auto note = exif.findKey(Exiv2::ExifKey("Exif.Photo.MakerNote"));
        if (note != exif.end()) {
            QByteArray bytes(qsizetype(note->size()), Qt::Uninitialized);
            note->copy(reinterpret_cast<Exiv2::byte *>(bytes.data()), Exiv2::invalidByteOrder);
            metadata->pairingIdentifier = pairingIdentifierFromMakerNote(bytes);
        }
        return true;
    } catch (const Exiv2::AnyError &exception) {
        if (error)
            *error = QStringLiteral("%1: not a readable JPEG or PNG image (%2)").arg(path, QString::fromStdString(exception.what()));
        return false;
    }
}

} // namespace imageio
