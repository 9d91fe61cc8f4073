#pragma once
// What libavformat reads from a movie file: the video track's stored size and frame times.

#include <QSize>
#include <QString>

#include <vector>

struct MovieFileProbe {
    bool opened = false;
    QSize encodedSize;
    std::vector<double> frameTimes; // presentation times in seconds, in file order

    static MovieFileProbe probe(const QString &path);
};
