#pragma once
// Encodes a movie from a frame function (time in seconds -> image) into an H.264 QuickTime file
// with creation date, location, publisher and, for the movie half of a Stir Shot, the pairing
// identifier. The encode runs synchronously on the caller's thread; the completion handler runs
// on the movie writer's own thread once the file is finished.

#include "media/VUTesterDateFormatter.h"
#include "media/VUTesterError.h"
#include "media/VUTesterLocation.h"
#include "shell/VUTesterExport.h"

#include <movie/PixelBuffer.h>

#include <QDateTime>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <QTransform>

#include <functional>
#include <memory>
#include <optional>

namespace movie {
class MovieWriter;
class PixelBufferAdaptor;
class VideoInput;
}

class VUTESTER_EXPORT VUTesterVideoWriter {
public:
    // A null image is none: that frame is skipped.
    using FrameGenerator = std::function<QImage(double time)>;
    using CompletionHandler = std::function<void(VUTesterOptionalError error)>;

    // Output: a new UUID-named .mov in the temporary directory; 2 s at 24 fps; date: now.
    VUTesterVideoWriter();
    ~VUTesterVideoWriter();

    QString outputURL() const { return m_outputURL; }
    void setOutputURL(const QString &outputURL) { m_outputURL = outputURL; }
    double outputDuration() const { return m_outputDuration; }
    void setOutputDuration(double duration) { m_outputDuration = duration; }
    double outputFPS() const { return m_outputFPS; }
    void setOutputFPS(double fps) { m_outputFPS = fps; }
    const std::optional<VUTesterLocation> &location() const { return m_location; }
    void setLocation(const std::optional<VUTesterLocation> &location) { m_location = location; }
    // An invalid date is none.
    const QDateTime &date() const { return m_date; }
    void setDate(const QDateTime &date) { m_date = date; }
    const QString &stirShotPairingIdentifier() const { return m_stirShotPairingIdentifier; }
    void setStirShotPairingIdentifier(const QString &identifier) { m_stirShotPairingIdentifier = identifier; }
    const FrameGenerator &frameGenerator() const { return m_frameGenerator; }
    void setFrameGenerator(FrameGenerator generator) { m_frameGenerator = std::move(generator); }
    // Applied by players on display; the encoded size is the first frame's size under it.
    const QTransform &transform() const { return m_transform; }
    void setTransform(const QTransform &transform) { m_transform = transform; }

    // Frames at t = 0, 1/fps, ... up to and including the duration. Blocks for the whole encode.
    void createVideoWithCompletionHandler(CompletionHandler handler);

    void _startCreationWithSize(QSizeF size);
    void _updateVideoWriterMetadata();
    // The image drawn into a new ARGB buffer whose rows are taken to be width x 4 bytes long.
    movie::PixelBufferPtr _pixelBufferFromImage(const QImage &image);

    // The ISO 6709 text of a location: "+37.785834-122.406417/".
    static QString _locationText(const VUTesterLocation &location);

private:
    QString m_outputURL;
    double m_outputDuration = 2.0;
    double m_outputFPS = 24.0;
    std::optional<VUTesterLocation> m_location;
    QDateTime m_date;
    QString m_stirShotPairingIdentifier;
    FrameGenerator m_frameGenerator;
    QTransform m_transform;

    std::shared_ptr<movie::MovieWriter> _videoWriter;
    std::shared_ptr<movie::VideoInput> _writerInput;
    std::unique_ptr<movie::PixelBufferAdaptor> _adaptor;
    movie::PixelBufferPtr _buffer;
    movie::PixelBufferPool _bufferPool;
    VUTesterDateFormatter _metadataDateFormatter;
};
