#include "MovieFileProbe.h"

#include <QFile>

extern "C" {
#include <libavformat/avformat.h>
}

MovieFileProbe MovieFileProbe::probe(const QString &path)
{
    MovieFileProbe result;
    AVFormatContext *context = nullptr;
    if (avformat_open_input(&context, QFile::encodeName(path).constData(), nullptr, nullptr) < 0)
        return result;
    const int video = av_find_best_stream(context, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (video >= 0) {
        result.opened = true;
        const AVStream *stream = context->streams[video];
        result.encodedSize = QSize(stream->codecpar->width, stream->codecpar->height);
        AVPacket *packet = av_packet_alloc();
        while (av_read_frame(context, packet) >= 0) {
            if (packet->stream_index == video)
                result.frameTimes.push_back(double(packet->pts) * av_q2d(stream->time_base));
            av_packet_unref(packet);
        }
        av_packet_free(&packet);
    }
    avformat_close_input(&context);
    return result;
}
