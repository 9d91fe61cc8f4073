#pragma once
// Writes one generated bitmap as a JPEG with the metadata that makes the photo library take it for
// a camera photo: capture date, location and, for the still half of a Stir Shot, the identifier
// that pairs it with its movie. The pixels are stored as they are, without an orientation tag.
// A writer serves one thread at a time; writing runs synchronously on the caller's thread.

#include "media/VUTesterDateFormatter.h"
#include "media/VUTesterError.h"
#include "media/VUTesterLocation.h"
#include "shell/VUTesterExport.h"

#include <QDateTime>
#include <QImage>
#include <QString>

#include <optional>

class VUTESTER_EXPORT VUTesterPhotoWriter {
public:
    // Output: a new UUID-named .jpg in the temporary directory; date: now.
    VUTesterPhotoWriter();

    QString outputURL() const { return m_outputURL; }
    void setOutputURL(const QString &outputURL) { m_outputURL = outputURL; }
    // Raw pixels, no orientation; a null image is none.
    const QImage &image() const { return m_image; }
    void setImage(const QImage &image) { m_image = image; }
    // An invalid date is none.
    const QDateTime &date() const { return m_date; }
    void setDate(const QDateTime &date) { m_date = date; }
    const std::optional<VUTesterLocation> &location() const { return m_location; }
    void setLocation(const std::optional<VUTesterLocation> &location) { m_location = location; }
    // Empty is none.
    const QString &stirShotPairingIdentifier() const { return m_stirShotPairingIdentifier; }
    void setStirShotPairingIdentifier(const QString &identifier) { m_stirShotPairingIdentifier = identifier; }

    // True when the file is written. When `error` is given it is always assigned: the failure, or
    // none on success.
    bool writeImageWithError(VUTesterOptionalError *error = nullptr);

    // "yyyy:MM:dd HH:mm:ss" in POSIX form and local time; made once, shared by every writer.
    static const VUTesterDateFormatter &_exifDateFormatter();

private:
    QString m_outputURL;
    QImage m_image;
    QDateTime m_date;
    std::optional<VUTesterLocation> m_location;
    QString m_stirShotPairingIdentifier;
};
