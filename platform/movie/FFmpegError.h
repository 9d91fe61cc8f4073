#pragma once
// FFmpeg's text for one of its negative error codes.

#include <QString>

namespace movie {

QString ffmpegErrorText(int code);

} // namespace movie
