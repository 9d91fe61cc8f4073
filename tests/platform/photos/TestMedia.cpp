#include "TestMedia.h"

#include "dispatch/Dispatch.h"
#include "imageio/ImageDestination.h"
#include "imageio/PhotoMetadata.h"
#include "movie/MovieWriter.h"
#include "movie/PixelBufferAdaptor.h"
#include "movie/VideoInput.h"

#include <QImage>

#include <algorithm>
#include <cmath>

namespace photos::testing {

bool writePhoto(const QString &path, const MediaSpec &spec, QString *error)
{
    QString failure;
    auto destination = imageio::ImageDestination::create(path, imageio::ImageDestination::Type::JPEG, &failure);
    if (!destination) {
        if (error)
            *error = failure;
        return false;
    }
    QImage image(spec.size, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(int(qHash(path) % 360), 200, 220));
    imageio::ImageProperties properties;
    if (spec.captureDate.isValid())
        properties.dateTimeOriginal = spec.captureDate.toString(QStringLiteral("yyyy:MM:dd HH:mm:ss"));
    if (spec.location) {
        const auto [latitude, longitude] = *spec.location;
        properties.gps = imageio::GPSProperties{std::fabs(latitude), latitude < 0 ? "S" : "N", std::fabs(longitude),
                                                longitude < 0 ? "W" : "E"};
    }
    if (!spec.pairingIdentifier.isEmpty()
        && !imageio::writePairingIdentifierMakerNote(spec.pairingIdentifier, &properties.makerNote, &failure)) {
        if (error)
            *error = failure;
        return false;
    }
    destination->addImage(image, properties);
    if (!destination->finalize(&failure)) {
        if (error)
            *error = failure;
        return false;
    }
    return true;
}

bool writeMovie(const QString &path, const MediaSpec &spec, QString *error)
{
    constexpr int kFps = 10;
    constexpr int kFrames = 5;
    auto writer = movie::MovieWriter::create(path, movie::MovieFileType::QuickTimeMovie);
    auto input = std::make_shared<movie::VideoInput>(
        movie::VideoOutputSettings{movie::kVideoCodecH264, spec.size.width(), spec.size.height()});
    QList<movie::MetadataItem> items = movie::pairingIdentifierMetadataItems(spec.pairingIdentifier);
    if (spec.captureDate.isValid()) {
        const int offset = spec.captureDate.offsetFromUtc();
        const QString sign = offset < 0 ? QStringLiteral("-") : QStringLiteral("+");
        const int minutes = std::abs(offset) / 60;
        items.append({movie::kCreationDateKey, spec.captureDate.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) + sign
                                                   + QStringLiteral("%1%2").arg(minutes / 60, 2, 10, QLatin1Char('0'))
                                                         .arg(minutes % 60, 2, 10, QLatin1Char('0'))});
    }
    if (spec.location) {
        const auto [latitude, longitude] = *spec.location;
        items.append({movie::kLocationKey, QStringLiteral("%1%2%3%4/")
                                               .arg(latitude < 0 ? "-" : "+")
                                               .arg(std::fabs(latitude), 0, 'f', 6)
                                               .arg(longitude < 0 ? "-" : "+")
                                               .arg(std::fabs(longitude), 0, 'f', 6)});
    }
    writer->setMetadata(items);
    movie::PixelBufferAdaptor adaptor(writer, input);
    writer->addInput(input);
    if (!writer->startWriting()) {
        if (error)
            *error = writer->error();
        return false;
    }
    writer->startSession({0, kFps});
    movie::PixelBufferPool pool;
    for (int frame = 0; frame < kFrames; ++frame) {
        movie::PixelBufferPtr buffer = pool.createPixelBuffer(spec.size.width(), spec.size.height());
        std::fill_n(reinterpret_cast<quint32 *>(buffer->baseAddress()),
                    buffer->bytesPerRow() / 4 * spec.size.height(), 0xff306090u + quint32(frame) * 8);
        if (!adaptor.appendPixelBuffer(*buffer, {frame, kFps}))
            break;
    }
    input->markAsFinished();
    writer->endSession({kFrames, kFps});
    dispatch::Semaphore done;
    writer->finishWriting([&] { done.signal(); });
    done.wait();
    if (writer->status() != movie::MovieWriter::Status::Completed) {
        if (error)
            *error = writer->error();
        return false;
    }
    return true;
}

} // namespace photos::testing
