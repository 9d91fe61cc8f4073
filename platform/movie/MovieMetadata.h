#pragma once
// Movie metadata items and reading them back.
//
// The movie writer stores its items as QuickTime metadata keys (the "mdta" key space inside
// moov/udta/meta), so other tools read them by name:
//
//     "location.ISO6709"    ISO 6709 text such as "+37.785834-122.406417/"
//     "creationdate"        "yyyy-MM-ddTHH:mm:ss+hhmm", local time with its UTC offset
//     "publisher"           free text
//     "content.identifier"  the moving-photo pairing identifier, the same text the paired photo
//                           carries in its maker note (imageio/PhotoMetadata.h)
//
// The location deliberately avoids the bare key "location": FFmpeg's muxer copies that key into a
// 3GPP "loci" atom of four decimals, which then hides the precise text from readers.
// pairingIdentifierMetadataItems() and readMovieMetadata() are the only places that know the
// pairing key.

#include <QDateTime>
#include <QList>
#include <QSize>
#include <QString>

namespace movie {

struct MetadataItem {
    QString key;
    QString value;
    bool operator==(const MetadataItem &) const = default;
};

inline const QString kLocationKey = QStringLiteral("location.ISO6709");
inline const QString kCreationDateKey = QStringLiteral("creationdate");
inline const QString kPublisherKey = QStringLiteral("publisher");

// The items that pair a movie with the photo of the same identifier; none for an empty one.
QList<MetadataItem> pairingIdentifierMetadataItems(const QString &identifier);

struct MovieMetadata {
    QDateTime creationDate;
    bool hasLocation = false;
    double latitude = 0, longitude = 0;
    QString publisher;
    QString pairingIdentifier;
    QSize pixelSize; // as displayed, after the track transform
    double duration = 0; // seconds
};

// False with a clear error for files that are missing or are not movies libavformat can open.
bool readMovieMetadata(const QString &path, MovieMetadata *metadata, QString *error);

// Latitude and longitude from ISO 6709 text ("+37.785834-122.406417/", altitude ignored).
bool parseISO6709(const QString &text, double *latitude, double *longitude);

} // namespace movie
