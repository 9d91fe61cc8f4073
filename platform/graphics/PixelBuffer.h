#pragma once
// Big pixel buffers that are recycled instead of returned to the system. A fresh 8000 x 6000 buffer
// costs about half a second in page faults on first touch; a recycled one costs nothing, so every
// canvas, generator and pixel transform takes its memory from here.

#include <QImage>

namespace graphics {

// A premultiplied RGBA8888 image of `size` with rows packed without gaps and undefined contents.
// Its memory goes back to the pool when the last QImage sharing it is destroyed. A null image for
// an empty size or when memory runs out.
QImage newPixelImage(QSize size);

// Bytes currently kept for reuse (for tests and benchmarks).
qsizetype retainedPixelBytes();

} // namespace graphics
