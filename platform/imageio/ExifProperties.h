#pragma once
// The metadata an image destination stores beside the pixels: a GPS group, the EXIF capture date
// and the maker note. Encoded once into the EXIF block (an APP1 segment's payload) that both the
// JPEG and the PNG paths embed.

#include <QByteArray>
#include <QString>

#include <optional>

namespace imageio {

struct GPSProperties {
    double latitude = 0; // absolute value, decimal degrees
    QString latitudeRef; // "N" or "S"
    double longitude = 0;
    QString longitudeRef; // "E" or "W"
};

struct ImageProperties {
    std::optional<GPSProperties> gps;
    QString dateTimeOriginal; // "yyyy:MM:dd HH:mm:ss"; empty for none
    QByteArray makerNote;     // empty for none

    bool isEmpty() const { return !gps && dateTimeOriginal.isEmpty() && makerNote.isEmpty(); }
};

// "Exif\0\0" followed by the little-endian TIFF structure holding the properties. The GPS group
// is written whole (version 2.3 and the four coordinate tags, latitude and longitude as degrees,
// minutes and seconds rationals).
QByteArray exifPayload(const ImageProperties &properties);

// Degrees, minutes and seconds of an absolute decimal angle, seconds in ten-thousandths, carried so
// that rounding never yields 60 seconds or 60 minutes.
struct DegreesMinutesSeconds {
    quint32 degrees, minutes, tenThousandthSeconds;
};
DegreesMinutesSeconds toDegreesMinutesSeconds(double decimalDegrees);

// Exiv2 keeps process-wide state (its XMP toolkit, its log level) that must be set up once before
// threads use it; every entry point of this library calls this first.
void initializeExiv2();

} // namespace imageio
