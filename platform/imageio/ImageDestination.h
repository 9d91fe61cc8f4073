#pragma once
// An image destination: one image and its metadata written to a JPEG or PNG file.
//
// The file appears only when finalize() succeeds: the bytes go to a temporary file beside the
// target that replaces it at the end, so a failed write leaves nothing half-written behind. JPEG
// is encoded with libjpeg-turbo and its EXIF block is emitted in the same pass, right after the
// start of the image, so no second pass over the file is needed.

#include "ExifProperties.h"

#include <QImage>
#include <QString>

#include <memory>

class QSaveFile;

namespace imageio {

class ImageDestination {
public:
    enum class Type { JPEG, PNG };

    // Null with an error when the file cannot be created (missing or unwritable folder).
    static std::unique_ptr<ImageDestination> create(const QString &path, Type type, QString *error);
    ~ImageDestination();

    // Any pixel format; premultiplied pixels with transparency come out composited over black in
    // a JPEG. Empty properties write no metadata block at all.
    void addImage(const QImage &image, const ImageProperties &properties = {});
    // Encodes and commits the file; false with an error when there is no image or writing fails.
    bool finalize(QString *error);

    // The quality libjpeg uses unless told otherwise.
    static constexpr int kDefaultJPEGQuality = 75;

private:
    ImageDestination(std::unique_ptr<QSaveFile> file, Type type);
    bool _writeJPEG(QString *error);
    bool _writePNG(QString *error);

    std::unique_ptr<QSaveFile> m_file;
    Type m_type;
    QImage m_image;
    ImageProperties m_properties;
};

} // namespace imageio
