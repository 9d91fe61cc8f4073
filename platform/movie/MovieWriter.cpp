#include "MovieWriter.h"

#include "FFmpegError.h"
#include "PixelBuffer.h"
#include "VideoInput.h"

#include "dispatch/Dispatch.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>
#include <mutex>

#include <fcntl.h>
#include <unistd.h>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

namespace movie {
namespace {

// QTransform (a, b, c, d, tx, ty) as the 3x3 display matrix of the track header: 16.16 fixed
// point, the last column 2.30.
void setDisplayMatrix(AVStream *stream, const QTransform &transform)
{
    if (transform.isIdentity())
        return;
    auto *matrix = reinterpret_cast<int32_t *>(av_stream_new_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, 9 * sizeof(int32_t)));
    if (!matrix)
        return;
    const auto fixed = [](double value) { return int32_t(std::lround(value * 65536.0)); };
    matrix[0] = fixed(transform.m11());
    matrix[1] = fixed(transform.m12());
    matrix[2] = 0;
    matrix[3] = fixed(transform.m21());
    matrix[4] = fixed(transform.m22());
    matrix[5] = 0;
    matrix[6] = fixed(transform.dx());
    matrix[7] = fixed(transform.dy());
    matrix[8] = 1 << 30;
}

// A new file of our own beside `path`, under a name no one can guess, for the movie to grow in
// until it is complete. Empty, with the reason, when none can be made.
QString createPartialFile(const QString &path, QString *error)
{
    const QFileInfo info(path);
    for (int attempt = 0; attempt < 8; ++attempt) {
        const QString candidate = info.dir().filePath(
            QStringLiteral(".%1.%2.partial").arg(info.fileName()).arg(QRandomGenerator::system()->generate64(), 16, 16, QLatin1Char('0')));
        const int fd = ::open(QFile::encodeName(candidate).constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (fd >= 0) {
            ::close(fd);
            return candidate;
        }
        if (errno != EEXIST)
            break;
    }
    *error = QStringLiteral("cannot create %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno)));
    return {};
}

} // namespace

std::shared_ptr<MovieWriter> MovieWriter::create(const QString &path, MovieFileType type)
{
    quietenFFmpegLogging();
    return std::shared_ptr<MovieWriter>(new MovieWriter(path, type));
}

MovieWriter::MovieWriter(const QString &path, MovieFileType) : m_path(path)
{
    const int allocated = avformat_alloc_output_context2(&m_format, nullptr, "mov", QFile::encodeName(path).constData());
    if (allocated < 0) {
        _fail(QStringLiteral("cannot make a QuickTime movie writer: %1").arg(ffmpegErrorText(allocated)));
        return;
    }
    // The file carries its metadata items and nothing else: no "encoder" key naming the muxer.
    m_format->flags |= AVFMT_FLAG_BITEXACT;
}

MovieWriter::~MovieWriter()
{
    av_packet_free(&m_pending);
    if (m_format) {
        avio_closep(&m_format->pb);
        avformat_free_context(m_format);
    }
    _removePartialFile();
}

void MovieWriter::_removePartialFile()
{
    if (!m_partialPath.isEmpty())
        QFile::remove(m_partialPath);
    m_partialPath.clear();
}

bool MovieWriter::canAddInput() const
{
    return !m_input && status() == Status::Unknown;
}

void MovieWriter::addInput(std::shared_ptr<VideoInput> input)
{
    if (canAddInput())
        m_input = std::move(input);
}

bool MovieWriter::startWriting()
{
    if (status() != Status::Unknown)
        return false;
    if (!m_input) {
        _fail(QStringLiteral("cannot start writing a movie without a video input"));
        return false;
    }
    // The movie takes its name only once complete: an interrupted write never leaves a movie
    // without its index under the name asked for.
    QString error;
    m_partialPath = createPartialFile(m_path, &error);
    if (m_partialPath.isEmpty()) {
        _fail(error);
        return false;
    }
    const int opened = avio_open(&m_format->pb, QFile::encodeName(m_partialPath).constData(), AVIO_FLAG_WRITE);
    if (opened < 0) {
        _removePartialFile();
        _fail(QStringLiteral("cannot create %1: %2").arg(m_path, ffmpegErrorText(opened)));
        return false;
    }
    std::lock_guard lock(m_statusMutex);
    m_status = Status::Writing;
    return true;
}

void MovieWriter::startSession(MediaTime)
{
    // Presentation times start at zero in every movie this writer makes; nothing to shift.
}

void MovieWriter::endSession(MediaTime time)
{
    m_sessionEnd = time;
}

bool MovieWriter::appendPixelBuffer(const PixelBuffer &buffer, MediaTime time)
{
    if (status() != Status::Writing)
        return false;
    if (time.timescale <= 0) {
        _fail(QStringLiteral("invalid time scale %1: frame rates below 1 cannot be written").arg(time.timescale));
        return false;
    }
    QString error;
    if (!m_headerWritten && !_writeHeader(time.timescale, &error)) {
        _fail(error);
        return false;
    }
    const bool encoded = m_input->encode(&buffer, time, [this](AVPacket *packet, QString *e) { return _writePacket(packet, e); }, &error);
    if (!encoded)
        _fail(error);
    return encoded;
}

bool MovieWriter::_writeHeader(qint32 timescale, QString *error)
{
    const bool globalHeader = m_format->oformat->flags & AVFMT_GLOBALHEADER;
    if (!m_input->open(timescale, globalHeader, error))
        return false;
    AVStream *stream = avformat_new_stream(m_format, nullptr);
    avcodec_parameters_from_context(stream->codecpar, m_input->codecContext());
    stream->time_base = m_input->codecContext()->time_base;
    setDisplayMatrix(stream, m_input->transform());

    for (const MetadataItem &item : std::as_const(m_metadata))
        av_dict_set(&m_format->metadata, item.key.toUtf8().constData(), item.value.toUtf8().constData(), 0);
    AVDictionary *options = nullptr;
    // Without this flag the muxer keeps only the keys it knows and drops the rest silently.
    av_dict_set(&options, "movflags", "use_metadata_tags", 0);
    const int written = avformat_write_header(m_format, &options);
    av_dict_free(&options);
    if (written < 0) {
        *error = QStringLiteral("cannot write the movie header: %1").arg(ffmpegErrorText(written));
        return false;
    }
    m_headerWritten = true;
    return true;
}

bool MovieWriter::_writePacket(AVPacket *packet, QString *error)
{
    if (m_pending && !_writePending(packet->dts - m_pending->dts, error))
        return false;
    if (!m_pending)
        m_pending = av_packet_alloc();
    av_packet_ref(m_pending, packet);
    return true;
}

bool MovieWriter::_writePending(qint64 duration, QString *error)
{
    AVStream *stream = m_format->streams[0];
    m_pending->duration = std::max<qint64>(duration, 1);
    m_pending->stream_index = stream->index;
    av_packet_rescale_ts(m_pending, m_input->codecContext()->time_base, stream->time_base);
    const int written = av_write_frame(m_format, m_pending);
    av_packet_unref(m_pending);
    if (written < 0) {
        *error = QStringLiteral("cannot write a frame to %1: %2").arg(m_path, ffmpegErrorText(written));
        return false;
    }
    return true;
}

bool MovieWriter::_finish(QString *error)
{
    if (!m_headerWritten) {
        *error = QStringLiteral("no frame was written to %1").arg(m_path);
        return false;
    }
    if (!m_input->encode(nullptr, {}, [this](AVPacket *packet, QString *e) { return _writePacket(packet, e); }, error))
        return false;
    if (m_pending && m_pending->size > 0) {
        const AVRational codecBase = m_input->codecContext()->time_base;
        const qint64 end = m_sessionEnd ? av_rescale_q(m_sessionEnd->value, AVRational{1, m_sessionEnd->timescale}, codecBase)
                                        : m_pending->pts + 1;
        if (!_writePending(end - m_pending->pts, error))
            return false;
    }
    const int trailer = av_write_trailer(m_format);
    const int closed = avio_closep(&m_format->pb);
    if (trailer < 0 || closed < 0) {
        *error = QStringLiteral("cannot finish %1: %2").arg(m_path, ffmpegErrorText(trailer < 0 ? trailer : closed));
        return false;
    }
    // rename() replaces whatever is at the name, a link included, without following it.
    if (::rename(QFile::encodeName(m_partialPath).constData(), QFile::encodeName(m_path).constData()) != 0) {
        *error = QStringLiteral("cannot finish %1: %2").arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    m_partialPath.clear();
    return true;
}

void MovieWriter::finishWriting(std::function<void()> handler)
{
    // The serial queue's thread exists while the job runs; the job keeps the writer alive.
    auto queue = dispatch::Queue::createSerial("movie.writer.completion");
    queue->async([self = shared_from_this(), queue, handler = std::move(handler)] {
        if (self->status() == Status::Writing) {
            QString error;
            if (self->_finish(&error)) {
                std::lock_guard lock(self->m_statusMutex);
                self->m_status = Status::Completed;
            } else {
                self->_fail(error);
            }
        }
        if (self->m_format)
            avio_closep(&self->m_format->pb);
        self->_removePartialFile();
        if (handler)
            handler();
    });
}

void MovieWriter::_fail(const QString &error)
{
    std::lock_guard lock(m_statusMutex);
    m_status = Status::Failed;
    m_error = error;
}

MovieWriter::Status MovieWriter::status() const
{
    std::lock_guard lock(m_statusMutex);
    return m_status;
}

QString MovieWriter::error() const
{
    std::lock_guard lock(m_statusMutex);
    return m_error;
}

} // namespace movie
