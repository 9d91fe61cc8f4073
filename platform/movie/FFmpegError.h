#pragma once
// FFmpeg's text for one of its negative error codes, and keeping its chatter off stderr.

#include <QString>

namespace movie {

QString ffmpegErrorText(int code);

// FFmpeg and x264 report every encode and every damaged packet on stderr; failures reach callers
// as errors instead, so only FFmpeg's own errors are left to print. Safe to call from any thread.
void quietenFFmpegLogging();

} // namespace movie
