#include "FFmpegError.h"

extern "C" {
#include <libavutil/error.h>
}

namespace movie {

QString ffmpegErrorText(int code)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return QString::fromUtf8(text);
}

} // namespace movie
