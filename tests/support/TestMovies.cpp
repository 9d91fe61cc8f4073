#include "TestMovies.h"

#include "movie/MovieWriter.h"
#include "movie/PixelBufferAdaptor.h"
#include "movie/VideoInput.h"

#include "dispatch/Dispatch.h"

#include <algorithm>
#include <cmath>

namespace {

// Levels 4 apart survive the encoder's rounding.
int levelOf(int index) { return 20 + 4 * index; }

} // namespace

bool writeTestMovie(const QString &path, const TestMovie &movie, QString *error)
{
    using namespace movie;
    auto writer = MovieWriter::create(path, MovieFileType::QuickTimeMovie);
    auto input = std::make_shared<VideoInput>(
        VideoOutputSettings{kVideoCodecH264, movie.size.width(), movie.size.height(), movie.keyFrameInterval});
    PixelBufferAdaptor adaptor(writer, input);
    writer->addInput(input);
    writer->startWriting();
    writer->startSession({0, movie.fps});
    for (int i = 0; i < std::min(movie.frames, TestMovie::kMaxFrames); ++i) {
        PixelBufferPtr buffer = adaptor.createPooledPixelBuffer();
        const quint32 grey = quint32(levelOf(i));
        std::fill_n(reinterpret_cast<quint32 *>(buffer->baseAddress()), buffer->bytesPerRow() / 4 * buffer->height(),
                    0xff000000u | grey << 16 | grey << 8 | grey);
        if (!adaptor.appendPixelBuffer(*buffer, {i, movie.fps}))
            break;
    }
    input->markAsFinished();
    writer->endSession({movie.frames, movie.fps});
    dispatch::Semaphore done;
    writer->finishWriting([&] { done.signal(); });
    done.wait();
    if (writer->status() != MovieWriter::Status::Completed) {
        *error = writer->error();
        return false;
    }
    return true;
}

int testMovieFrameIndex(const QImage &image)
{
    if (image.isNull())
        return -1;
    const int grey = qGreen(image.pixel(image.width() / 2, image.height() / 2));
    return int(std::lround((grey - levelOf(0)) / 4.0));
}
