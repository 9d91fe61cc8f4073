#pragma once
// Reading back what the image destination wrote: capture date, location, the moving-photo pairing
// identifier, pixel size and orientation of a JPEG or PNG file.
//
// The pairing identifier lives in the maker-specific metadata, the EXIF MakerNote (tag 0x927C in
// the EXIF group), as bytes of type UNDEFINED:
//
//     "VistraContentIdentifier" NUL <identifier as UTF-8>
//
// The 24-byte prefix (23 ASCII characters and one NUL) tells our note from any camera's; the
// identifier runs to the end of the note, without a terminator. Identifiers are 1 to 255 bytes of
// printable ASCII (a UUID text is the usual one). writePairingIdentifierMakerNote() and
// pairingIdentifierFromMakerNote() are the only two places that know this layout.

#include <QByteArray>
#include <QDateTime>
#include <QSize>
#include <QString>

namespace imageio {

struct PhotoMetadata {
    // Local wall-clock time as written in DateTimeOriginal, Qt::LocalTime; invalid when absent.
    QDateTime captureDate;
    bool hasLocation = false;
    double latitude = 0, longitude = 0;
    QString pairingIdentifier;
    QSize pixelSize;
    int exifOrientation = 1;
};

// False with a clear error for files that are missing or are not readable JPEG or PNG images.
bool readPhotoMetadata(const QString &path, PhotoMetadata *metadata, QString *error);

// The maker note that carries `identifier`; false with an error for an identifier outside the
// allowed form (empty, too long, not printable ASCII).
bool writePairingIdentifierMakerNote(const QString &identifier, QByteArray *makerNote, QString *error);
// The identifier inside a maker note of ours; empty for any other maker note.
QString pairingIdentifierFromMakerNote(const QByteArray &makerNote);

} // namespace imageio
