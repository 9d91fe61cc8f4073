#pragma once
// Asks for a movie of a given size, length and frame rate; subclasses make it.

#include "media/VUTesterError.h"
#include "shell/VUTesterExport.h"

#include <QSizeF>
#include <QString>

#include <functional>

class VUTESTER_EXPORT VUTesterVideoGenerator {
public:
    // The movie's path, or an empty path and the error.
    using CompletionHandler = std::function<void(const QString &path, VUTesterOptionalError error)>;

    virtual ~VUTesterVideoGenerator();

    QSizeF videoSize() const { return m_videoSize; }
    void setVideoSize(QSizeF size) { m_videoSize = size; }
    double videoDuration() const { return m_videoDuration; }
    void setVideoDuration(double duration) { m_videoDuration = duration; }
    double videoFPS() const { return m_videoFPS; }
    void setVideoFPS(double fps) { m_videoFPS = fps; }

    // The base makes nothing and never calls the handler.
    virtual void generateVideoWithFileNameSuffix(const QString &suffix, CompletionHandler handler);
    void generateVideoWithCompletionHandler(CompletionHandler handler);

private:
    QSizeF m_videoSize;
    double m_videoDuration = 0.0;
    double m_videoFPS = 0.0;
};
