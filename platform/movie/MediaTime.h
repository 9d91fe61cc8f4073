#pragma once
// A media time as a count of ticks at a time scale (ticks per second), so that frame times are
// exact at the movie's own rate.

#include <QtGlobal>

#include <cmath>

namespace movie {

struct MediaTime {
    qint64 value = 0;
    qint32 timescale = 1;

    // The nearest tick to `seconds`.
    static MediaTime fromSeconds(double seconds, qint32 timescale) { return {qint64(std::llround(seconds * timescale)), timescale}; }
    double seconds() const { return double(value) / timescale; }
};

} // namespace movie
