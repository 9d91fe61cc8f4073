#pragma once
// Big pixel buffers that are recycled instead of returned to the system at once. A fresh
// 8000 x 6000 buffer costs about half a second in page faults on first touch; a recycled one costs
// nothing, so every canvas, generator and pixel transform takes its memory from here.
//
// The pool keeps only what the work of the moment needs: a request that no kept buffer fits first
// gives back kept buffers until the pool and the buffers in use together hold no more than the
// most the work has had in use at once lately, and buffers unused for about a second go back to
// the system, so the memory of a large fill returns once it is over.

#include <QImage>

namespace graphics {

// A premultiplied RGBA8888 image of `size` with rows packed without gaps and undefined contents.
// Its memory goes back to the pool when the last QImage sharing it is destroyed. A null image for
// an empty size or when memory runs out.
QImage newPixelImage(QSize size);

// Bytes currently kept for reuse (for tests and benchmarks).
qsizetype retainedPixelBytes();

} // namespace graphics
