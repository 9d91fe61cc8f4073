#pragma once
// The one movie maker of the module: a red radial pattern turning one sector per second under a
// running time stamp. Movies are cached in the temporary directory under a name made of their
// parameters, and made one at a time on a queue shared by every instance.

#include "media/VUTesterVideoGenerator.h"

#include <dispatch/Dispatch.h>

#include <QImage>

class VUTESTER_EXPORT VUTesterDefaultVideoGenerator : public VUTesterVideoGenerator {
public:
    // 1920 x 1080, 5 s, 24 fps.
    VUTesterDefaultVideoGenerator();

    // Returns at once; the handler runs on the shared queue for a cached file, on the movie
    // writer's thread after an encode.
    void generateVideoWithFileNameSuffix(const QString &suffix, CompletionHandler handler) override;

    static QImage _imageForTime(double time, QSizeF size, const QString &label);

    // Height capped at 1080 keeping the aspect ratio, width rounded up to a multiple of 16.
    static QSizeF _normalizedVideoSize(QSizeF size);
    // The cache path in the temporary directory for these parameters.
    static QString _videoPath(QSizeF normalizedSize, double duration, double fps, const QString &suffix);
    // "1″250" for 1.25 s.
    static QString _timeStampLabel(double time);
    static const dispatch::QueuePtr &_queue();
};
