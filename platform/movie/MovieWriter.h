#pragma once
// A movie writer: one H.264 video input muxed into a QuickTime movie (FFmpeg's mov muxer), with
// metadata items (see MovieMetadata.h for the keys) and the input's display transform.
//
// Lifecycle: create, set metadata, add the input, startWriting(), startSession(), append frames
// through a PixelBufferAdaptor, endSession(), finishWriting(). The file header is written with the
// first frame, once the time scale is known. finishWriting() drains the encoder and closes the
// file on a thread of the writer's own and calls its handler there. The movie is written under a
// hidden temporary name beside the path and takes the path's name only once complete.

#include "MediaTime.h"
#include "MovieMetadata.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

struct AVFormatContext;
struct AVPacket;

namespace movie {

class PixelBuffer;
class VideoInput;

enum class MovieFileType { QuickTimeMovie };

class MovieWriter : public std::enable_shared_from_this<MovieWriter> {
public:
    enum class Status { Unknown, Writing, Completed, Failed };

    // Never null; a writer that cannot be made reports it through status() and error().
    static std::shared_ptr<MovieWriter> create(const QString &path, MovieFileType type);
    ~MovieWriter();

    QString outputPath() const { return m_path; }
    const QList<MetadataItem> &metadata() const { return m_metadata; }
    // Takes effect when the first frame writes the file header.
    void setMetadata(const QList<MetadataItem> &metadata) { m_metadata = metadata; }

    bool canAddInput() const;
    void addInput(std::shared_ptr<VideoInput> input);

    // Opens the file; false (status Failed) when it cannot be created.
    bool startWriting();
    void startSession(MediaTime time);
    // The movie ends here: the last frame lasts until this time.
    void endSession(MediaTime time);

    // Encodes one frame of the input; false (status Failed, error() set) on failure.
    bool appendPixelBuffer(const PixelBuffer &buffer, MediaTime time);

    void finishWriting(std::function<void()> handler);

    Status status() const;
    QString error() const;

private:
    MovieWriter(const QString &path, MovieFileType type);
    bool _writeHeader(qint32 timescale, QString *error);
    bool _writePacket(AVPacket *packet, QString *error);
    bool _writePending(qint64 duration, QString *error);
    bool _finish(QString *error);
    void _fail(const QString &error);
    void _removePartialFile();

    QString m_path;
    // Where the movie grows until finishWriting() gives it its name; empty when there is none.
    QString m_partialPath;
    QList<MetadataItem> m_metadata;
    std::shared_ptr<VideoInput> m_input;
    AVFormatContext *m_format = nullptr;
    AVPacket *m_pending = nullptr; // held back until the next packet or the end tells its duration
    bool m_headerWritten = false;
    std::optional<MediaTime> m_sessionEnd;

    mutable std::mutex m_statusMutex;
    Status m_status = Status::Unknown;
    QString m_error;
};

} // namespace movie
