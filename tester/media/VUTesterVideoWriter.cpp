#include "VUTesterVideoWriter.h"

#include "VUTesterMediaWritersLogging.h"
#include "VUTesterTemporaryDirectory.h"

#include <movie/MovieMetadata.h>
#include <movie/MovieWriter.h>
#include <movie/PixelBufferAdaptor.h>
#include <movie/VideoInput.h>

#include <QFile>
#include <QPainter>
#include <QUuid>

#include <chrono>
#include <cmath>
#include <thread>

namespace {

constexpr std::chrono::milliseconds kReadinessPoll(10);

QString signedDegrees(double value)
{
    return (value > 0 ? QStringLiteral("+") : QString()) + QString::number(value, 'f', 6);
}

} // namespace

VUTesterVideoWriter::VUTesterVideoWriter()
    : m_outputURL(VUTesterTemporaryFilePath(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper() + QStringLiteral(".mov"))),
      m_date(QDateTime::currentDateTime()),
      // The user's own locale, unlike the photo writer's fixed POSIX one.
      _metadataDateFormatter(QStringLiteral("yyyy-MM-dd'T'HH:mm:ssZ"))
{
}

VUTesterVideoWriter::~VUTesterVideoWriter() = default;

QString VUTesterVideoWriter::_locationText(const VUTesterLocation &location)
{
    return signedDegrees(location.latitude) + signedDegrees(location.longitude) + QLatin1Char('/');
}

void VUTesterVideoWriter::createVideoWithCompletionHandler(CompletionHandler handler)
{
    const double fps = m_outputFPS;
    const double duration = m_outputDuration;
    const auto timescale = qint32(fps);
    qint64 i = 0;
    double t = 0;
    VUTesterOptionalError error;
    while (t <= duration && !error) {
        {
            const QImage image = m_frameGenerator ? m_frameGenerator(t) : QImage();
            if (!image.isNull()) {
                if (t == 0) {
                    const double w = image.width(), h = image.height();
                    _startCreationWithSize(QSizeF(std::fabs(w * m_transform.m11() + h * m_transform.m21()),
                                                  std::fabs(w * m_transform.m12() + h * m_transform.m22())));
                }
                while (_writerInput && !_writerInput->isReadyForMoreMediaData())
                    std::this_thread::sleep_for(kReadinessPoll);
                if (!_buffer && _adaptor)
                    _buffer = _adaptor->createPooledPixelBuffer();
                _buffer = _pixelBufferFromImage(image);
                if (_buffer) {
                    const bool appended = _adaptor && _adaptor->appendPixelBuffer(*_buffer, movie::MediaTime::fromSeconds(t, timescale));
                    if (!appended && _videoWriter && !_videoWriter->error().isEmpty())
                        error = VUTesterError{_videoWriter->error()};
                }
            }
        }
        ++i;
        t = double(i) / fps;
    }

    if (!_videoWriter) {
        // Without a first frame no encoder was set up and there is no file to finish.
        handler(error ? error : VUTesterError{QStringLiteral("no movie was written: the frame at time 0 is missing")});
        return;
    }
    if (_writerInput)
        _writerInput->markAsFinished();
    _videoWriter->endSession(movie::MediaTime::fromSeconds(t, timescale));
    _buffer.reset();
    std::shared_ptr<movie::MovieWriter> writer = _videoWriter;
    writer->finishWriting([writer, error, handler = std::move(handler)]() mutable {
        if (writer->status() == movie::MovieWriter::Status::Failed)
            error = VUTesterError{writer->error()};
        handler(error);
    });
}

void VUTesterVideoWriter::_startCreationWithSize(QSizeF size)
{
    if (qint64(size.width()) % 16 != 0)
        qCWarning(lcVUTesterWriters, "Warning: for now, video width should be a multiple of 16 to produce expected results (%s)",
                  qUtf8Printable(QStringLiteral("{%1, %2}").arg(size.width()).arg(size.height())));
    QFile::remove(m_outputURL);
    _videoWriter = movie::MovieWriter::create(m_outputURL, movie::MovieFileType::QuickTimeMovie);
    _writerInput = std::make_shared<movie::VideoInput>(
        movie::VideoOutputSettings{movie::kVideoCodecH264, int(size.width()), int(size.height())});
    _updateVideoWriterMetadata();
    _writerInput->setTransform(m_transform);
    _adaptor = std::make_unique<movie::PixelBufferAdaptor>(_videoWriter, _writerInput);
    _videoWriter->addInput(_writerInput);
    _videoWriter->startWriting();
    _videoWriter->startSession(movie::MediaTime{0, qint32(m_outputFPS)});
}

void VUTesterVideoWriter::_updateVideoWriterMetadata()
{
    QList<movie::MetadataItem> items = _videoWriter->metadata();
    if (m_location)
        items.append({movie::kLocationKey, _locationText(*m_location)});
    if (m_date.isValid())
        items.append({movie::kCreationDateKey, _metadataDateFormatter.stringFromDate(m_date)});
    items.append({movie::kPublisherKey, QStringLiteral("Library Filler")});
    if (!m_stirShotPairingIdentifier.isEmpty())
        items.append(movie::pairingIdentifierMetadataItems(m_stirShotPairingIdentifier));
    _videoWriter->setMetadata(items);
}

movie::PixelBufferPtr VUTesterVideoWriter::_pixelBufferFromImage(const QImage &image)
{
    movie::PixelBufferPtr buffer = _bufferPool.createPixelBuffer(image.width(), image.height());
    if (!buffer)
        return nullptr;
    // Rows of exactly width x 4 bytes, whatever the buffer's padded row length: widths that are
    // not a multiple of 16 come out sheared, as the warning at the start says.
    QImage context(buffer->baseAddress(), image.width(), image.height(), qsizetype(image.width()) * 4, QImage::Format_RGB32);
    QPainter painter(&context);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRect(0, 0, image.width(), image.height()), image);
    return buffer;
}
