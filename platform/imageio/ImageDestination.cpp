#include "ImageDestination.h"

#include <QBuffer>
#include <QImageWriter>
#include <QSaveFile>

#include <exiv2/error.hpp>
#include <exiv2/exif.hpp>
#include <exiv2/image.hpp>

#include <csetjmp>
#include <cstdio>
#include <vector>

#include <jpeglib.h>

namespace imageio {
namespace {

constexpr size_t kOutputChunk = 256 * 1024;
constexpr int kRowsPerCall = 16;
constexpr int kApp1Marker = JPEG_APP0 + 1;
// An APP1 segment holds at most 65533 payload bytes (its length field counts itself).
constexpr int kMaxMarkerPayload = 65533;

struct JPEGWriter {
    jpeg_compress_struct cinfo;
    jpeg_error_mgr errorManager;
    jpeg_destination_mgr destination;
    std::jmp_buf failure;
    char message[JMSG_LENGTH_MAX];
    QIODevice *device;
    unsigned char *chunk;
    bool deviceFailed;
};

JPEGWriter *writerOf(j_common_ptr cinfo)
{
    return reinterpret_cast<JPEGWriter *>(cinfo->client_data);
}

void initDestination(j_compress_ptr cinfo)
{
    JPEGWriter *writer = writerOf(j_common_ptr(cinfo));
    writer->destination.next_output_byte = writer->chunk;
    writer->destination.free_in_buffer = kOutputChunk;
}

void flushBytes(JPEGWriter *writer, size_t count)
{
    if (count && writer->device->write(reinterpret_cast<const char *>(writer->chunk), qint64(count)) != qint64(count)) {
        writer->deviceFailed = true;
        std::longjmp(writer->failure, 1);
    }
}

boolean emptyOutputBuffer(j_compress_ptr cinfo)
{
    JPEGWriter *writer = writerOf(j_common_ptr(cinfo));
    flushBytes(writer, kOutputChunk);
    initDestination(cinfo);
    return TRUE;
}

void termDestination(j_compress_ptr cinfo)
{
    JPEGWriter *writer = writerOf(j_common_ptr(cinfo));
    flushBytes(writer, kOutputChunk - writer->destination.free_in_buffer);
}

void errorExit(j_common_ptr cinfo)
{
    JPEGWriter *writer = writerOf(cinfo);
    cinfo->err->format_message(cinfo, writer->message);
    std::longjmp(writer->failure, 1);
}

// The pixels as libjpeg-turbo reads them without a copy where possible: 4 bytes per pixel, the
// fourth ignored.
struct JPEGSource {
    QImage pixels;
    J_COLOR_SPACE colorSpace;
};

JPEGSource jpegSource(const QImage &image)
{
    switch (image.format()) {
    case QImage::Format_RGBX8888:
    case QImage::Format_RGBA8888_Premultiplied:
        return {image, JCS_EXT_RGBX};
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return {image, Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB};
    default:
        return {image.convertToFormat(QImage::Format_RGBA8888_Premultiplied), JCS_EXT_RGBX};
    }
}

// Kept free of C++ objects with destructors: a libjpeg failure unwinds it with longjmp.
bool encodeJPEG(JPEGWriter *writer, const JPEGSource &source, const QByteArray &exif)
{
    jpeg_compress_struct *cinfo = &writer->cinfo;
    cinfo->err = jpeg_std_error(&writer->errorManager);
    writer->errorManager.error_exit = errorExit;
    cinfo->client_data = writer;
    if (setjmp(writer->failure)) {
        jpeg_destroy_compress(cinfo);
        return false;
    }
    jpeg_create_compress(cinfo);
    writer->destination.init_destination = initDestination;
    writer->destination.empty_output_buffer = emptyOutputBuffer;
    writer->destination.term_destination = termDestination;
    cinfo->dest = &writer->destination;

    cinfo->image_width = JDIMENSION(source.pixels.width());
    cinfo->image_height = JDIMENSION(source.pixels.height());
    cinfo->input_components = 4;
    cinfo->in_color_space = source.colorSpace;
    jpeg_set_defaults(cinfo);
    jpeg_set_quality(cinfo, ImageDestination::kDefaultJPEGQuality, TRUE);
    // An EXIF file starts with its APP1 segment; a JFIF header in front of it is not standard.
    cinfo->write_JFIF_header = exif.isEmpty() ? TRUE : FALSE;
    jpeg_start_compress(cinfo, TRUE);
    if (!exif.isEmpty())
        jpeg_write_marker(cinfo, kApp1Marker, reinterpret_cast<const JOCTET *>(exif.constData()), unsigned(exif.size()));

    const uchar *bits = source.pixels.constBits();
    const qsizetype stride = source.pixels.bytesPerLine();
    JSAMPROW rows[kRowsPerCall];
    while (cinfo->next_scanline < cinfo->image_height) {
        const JDIMENSION first = cinfo->next_scanline;
        const JDIMENSION count = std::min<JDIMENSION>(kRowsPerCall, cinfo->image_height - first);
        for (JDIMENSION i = 0; i < count; ++i)
            rows[i] = const_cast<JSAMPROW>(bits + stride * qsizetype(first + i));
        jpeg_write_scanlines(cinfo, rows, count);
    }
    jpeg_finish_compress(cinfo);
    jpeg_destroy_compress(cinfo);
    return true;
}

} // namespace

ImageDestination::ImageDestination(std::unique_ptr<QSaveFile> file, Type type)
    : m_file(std::move(file)), m_type(type)
{
}

ImageDestination::~ImageDestination() = default;

std::unique_ptr<ImageDestination> ImageDestination::create(const QString &path, Type type, QString *error)
{
    auto file = std::make_unique<QSaveFile>(path);
    if (!file->open(QIODevice::WriteOnly)) {
        if (error)
            *error = QStringLiteral("cannot create %1: %2").arg(path, file->errorString());
        return nullptr;
    }
    return std::unique_ptr<ImageDestination>(new ImageDestination(std::move(file), type));
}

void ImageDestination::addImage(const QImage &image, const ImageProperties &properties)
{
    m_image = image;
    m_properties = properties;
}

bool ImageDestination::finalize(QString *error)
{
    if (m_image.isNull()) {
        if (error)
            *error = QStringLiteral("no image to write");
        return false;
    }
    if (!(m_type == Type::JPEG ? _writeJPEG(error) : _writePNG(error)))
        return false;
    if (!m_file->commit()) {
        if (error)
            *error = QStringLiteral("cannot write %1: %2").arg(m_file->fileName(), m_file->errorString());
        return false;
    }
    return true;
}

bool ImageDestination::_writeJPEG(QString *error)
{
    const QByteArray exif = m_properties.isEmpty() ? QByteArray() : exifPayload(m_properties);
    if (exif.size() > kMaxMarkerPayload) {
        if (error)
            *error = QStringLiteral("metadata of %1 bytes does not fit a JPEG segment").arg(exif.size());
        return false;
    }
    std::vector<unsigned char> chunk(kOutputChunk);
    auto writer = std::make_unique<JPEGWriter>();
    writer->device = m_file.get();
    writer->chunk = chunk.data();
    if (encodeJPEG(writer.get(), jpegSource(m_image), exif))
        return true;
    if (error)
        *error = writer->deviceFailed ? QStringLiteral("cannot write %1: %2").arg(m_file->fileName(), m_file->errorString())
                                      : QStringLiteral("JPEG encoding failed: %1").arg(QString::fromLocal8Bit(writer->message));
    return false;
}

bool ImageDestination::_writePNG(QString *error)
{
    QBuffer encoded;
    encoded.open(QIODevice::WriteOnly);
    QImageWriter pngWriter(&encoded, "png");
    if (!pngWriter.write(m_image)) {
        if (error)
            *error = QStringLiteral("PNG encoding failed: %1").arg(pngWriter.errorString());
        return false;
    }
    QByteArray bytes = encoded.data();
    if (!m_properties.isEmpty()) {
        initializeExiv2();
        try {
            const QByteArray payload = exifPayload(m_properties).mid(6);
            Exiv2::ExifData exif;
            Exiv2::ExifParser::decode(exif, reinterpret_cast<const Exiv2::byte *>(payload.constData()), uint32_t(payload.size()));
            auto image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte *>(bytes.constData()), long(bytes.size()));
            image->readMetadata();
            image->setExifData(exif);
            image->writeMetadata();
            Exiv2::BasicIo &io = image->io();
            io.seek(0, Exiv2::BasicIo::beg);
            const Exiv2::DataBuf withMetadata = io.read(long(io.size()));
            bytes = QByteArray(reinterpret_cast<const char *>(withMetadata.pData_), qsizetype(withMetadata.size_));
        } catch (const Exiv2::AnyError &exception) {
            if (error)
                *error = QStringLiteral("cannot add metadata to PNG: %1").arg(QString::fromStdString(exception.what()));
            return false;
        }
    }
    if (m_file->write(bytes) != bytes.size()) {
        if (error)
            *error = QStringLiteral("cannot write %1: %2").arg(m_file->fileName(), m_file->errorString());
        return false;
    }
    return true;
}

} // namespace imageio
