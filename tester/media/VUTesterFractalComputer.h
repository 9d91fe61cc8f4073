#pragma once
// The escape count of the Mandelbrot iteration z -> z^2 + c from z = 0.

#include "shell/VUTesterExport.h"

#include <cstdint>

class VUTESTER_EXPORT VUTesterFractalComputer {
public:
    int64_t maxValue() const { return m_maxValue; }
    void setMaxValue(int64_t maxValue) { m_maxValue = maxValue; }

    // Rounds taken before |z| exceeds 2, at most maxValue; 0 when maxValue is below 1. A point
    // outside the radius-2 disc gives 1, a point that never escapes gives maxValue.
    int64_t valueAtX(double cx, double cy) const
    {
        const int64_t limit = m_maxValue;
        if (limit < 1)
            return 0;
        double zr = 0.0;
        double zi = 0.0;
        int64_t n = 0;
        while (n < limit) {
            const double zr2 = zr * zr;
            const double zi2 = zi * zi;
            if (zr2 + zi2 > 4.0)
                break;
            zi = 2.0 * zr * zi + cy;
            zr = zr2 - zi2 + cx;
            ++n;
        }
        return n;
    }

private:
    int64_t m_maxValue = 0;
};
