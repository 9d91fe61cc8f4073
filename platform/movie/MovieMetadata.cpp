#include "MovieMetadata.h"

#include "FFmpegError.h"

#include <QFile>
#include <QRegularExpression>

#include <cmath>

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/display.h>
}

namespace movie {
namespace {

const QString kPairingIdentifierKey = QStringLiteral("content.identifier");

QString tag(const AVDictionary *dictionary, const QString &key)
{
    const AVDictionaryEntry *entry = av_dict_get(dictionary, key.toUtf8().constData(), nullptr, 0);
    return entry ? QString::fromUtf8(entry->value) : QString();
}

// The picture size a player shows: the stored size under the track's display matrix.
QSize displayedSize(const AVStream *stream)
{
    const int width = stream->codecpar->width, height = stream->codecpar->height;
    size_t size = 0;
    const uint8_t *data = av_stream_get_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, &size);
    if (!data || size < 9 * sizeof(int32_t))
        return QSize(width, height);
    const auto *matrix = reinterpret_cast<const int32_t *>(data);
    const double a = matrix[0] / 65536.0, b = matrix[1] / 65536.0, c = matrix[3] / 65536.0, d = matrix[4] / 65536.0;
    return QSize(int(std::lround(std::fabs(width * a + height * c))), int(std::lround(std::fabs(width * b + height * d))));
}

} // namespace

QList<MetadataItem> pairingIdentifierMetadataItems(const QString &identifier)
{
    if (identifier.isEmpty())
        return {};
    return {{kPairingIdentifierKey, identifier}};
}

bool parseISO6709(const QString &text, double *latitude, double *longitude)
{
    static const QRegularExpression pattern(QStringLiteral("^([+-]\\d{1,2}(?:\\.\\d+)?)([+-]\\d{1,3}(?:\\.\\d+)?)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return false;
    *latitude = match.captured(1).toDouble();
    *longitude = match.captured(2).toDouble();
    return true;
}

bool readMovieMetadata(const QString &path, MovieMetadata *metadata, QString *error)
{
    *metadata = MovieMetadata();
    AVFormatContext *context = nullptr;
    const int opened = avformat_open_input(&context, QFile::encodeName(path).constData(), nullptr, nullptr);
    if (opened < 0) {
        if (error)
            *error = QStringLiteral("%1: cannot open movie: %2").arg(path, ffmpegErrorText(opened));
        return false;
    }
    const int found = avformat_find_stream_info(context, nullptr);
    const int video = found < 0 ? found : av_find_best_stream(context, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (video < 0) {
        if (error)
            *error = QStringLiteral("%1: no video track: %2").arg(path, ffmpegErrorText(video));
        avformat_close_input(&context);
        return false;
    }
    const AVStream *stream = context->streams[video];
    metadata->pixelSize = displayedSize(stream);
    if (context->duration != AV_NOPTS_VALUE)
        metadata->duration = double(context->duration) / AV_TIME_BASE;
    else if (stream->duration != AV_NOPTS_VALUE)
        metadata->duration = double(stream->duration) * av_q2d(stream->time_base);

    const AVDictionary *tags = context->metadata;
    metadata->creationDate = QDateTime::fromString(tag(tags, kCreationDateKey), Qt::ISODate);
    // Movies from other tools often carry only the movie header's own date.
    if (!metadata->creationDate.isValid())
        metadata->creationDate = QDateTime::fromString(tag(tags, QStringLiteral("creation_time")), Qt::ISODate);
    metadata->hasLocation = parseISO6709(tag(tags, kLocationKey), &metadata->latitude, &metadata->longitude);
    metadata->publisher = tag(tags, kPublisherKey);
    metadata->pairingIdentifier = tag(tags, kPairingIdentifierKey);
    avformat_close_input(&context);
    return true;
}

} // namespace movie
