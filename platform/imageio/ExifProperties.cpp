#include "ExifProperties.h"

#include <exiv2/exif.hpp>
#include <exiv2/error.hpp>
#include <exiv2/xmp_exiv2.hpp>

#include <algorithm>
#include <cmath>
#include <mutex>

namespace imageio {
namespace {

constexpr quint32 kSecondFraction = 10000;

Exiv2::URationalValue dmsValue(double decimalDegrees)
{
    const DegreesMinutesSeconds dms = toDegreesMinutesSeconds(decimalDegrees);
    Exiv2::URationalValue value;
    value.value_.emplace_back(dms.degrees, 1);
    value.value_.emplace_back(dms.minutes, 1);
    value.value_.emplace_back(dms.tenThousandthSeconds, kSecondFraction);
    return value;
}

} // namespace

void initializeExiv2()
{
    static std::once_flag once;
    std::call_once(once, [] {
        Exiv2::XmpParser::initialize();
        // Exiv2 reports recoverable oddities on stderr; callers get errors through return values.
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    });
}

DegreesMinutesSeconds toDegreesMinutesSeconds(double decimalDegrees)
{
    const auto total = quint64(std::llround(std::fabs(decimalDegrees) * 3600.0 * kSecondFraction));
    const quint64 perDegree = 3600ull * kSecondFraction;
    const quint64 perMinute = 60ull * kSecondFraction;
    return {quint32(total / perDegree), quint32(total % perDegree / perMinute), quint32(total % perMinute)};
}

QByteArray exifPayload(const ImageProperties &properties)
{
    initializeExiv2();
    Exiv2::ExifData exif;
    if (properties.gps) {
        const GPSProperties &gps = *properties.gps;
        exif["Exif.GPSInfo.GPSLatitudeRef"] = gps.latitudeRef.toStdString();
        exif["Exif.GPSInfo.GPSLatitude"] = dmsValue(gps.latitude);
        exif["Exif.GPSInfo.GPSLongitudeRef"] = gps.longitudeRef.toStdString();
        exif["Exif.GPSInfo.GPSLongitude"] = dmsValue(gps.longitude);
    }
    if (!properties.dateTimeOriginal.isEmpty())
        exif["Exif.Photo.DateTimeOriginal"] = properties.dateTimeOriginal.toStdString();
    if (!properties.makerNote.isEmpty()) {
        Exiv2::DataValue note(reinterpret_cast<const Exiv2::byte *>(properties.makerNote.constData()),
                              long(properties.makerNote.size()), Exiv2::invalidByteOrder, Exiv2::undefined);
        exif["Exif.Photo.MakerNote"] = note;
    }

    Exiv2::Blob blob;
    Exiv2::ExifParser::encode(blob, Exiv2::littleEndian, exif);
    QByteArray payload("Exif\0\0", 6);
    payload.append(reinterpret_cast<const char *>(blob.data()), qsizetype(blob.size()));
    return payload;
}

} // namespace imageio
