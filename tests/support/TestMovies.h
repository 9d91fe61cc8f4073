#pragma once
// Movies whose pictures say which they are: picture i is a solid grey of its own level, so a test
// can read back the index of any decoded picture. Written by the module's own movie writer
// (H.264 in QuickTime), readable by any player.

#include <QImage>
#include <QSize>
#include <QString>

struct TestMovie {
    QSize size{160, 96};
    int frames = 48; // at most kMaxFrames
    int fps = 24;
    int keyFrameInterval = 12;
    static constexpr int kMaxFrames = 55;
};

// False with an error when the movie could not be written.
bool writeTestMovie(const QString &path, const TestMovie &movie, QString *error);
// The index of the picture, from the grey at its centre; -1 for a null image.
int testMovieFrameIndex(const QImage &image);
