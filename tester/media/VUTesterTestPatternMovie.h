#pragma once
// The movie a media playground plays when it needs one of its own: the default video generator's
// test pattern (a red radial pattern turning under a running time stamp) at 24 pictures a second,
// cached in the temporary directory by its parameters. Making it counts as pending work, so a
// screen waiting for it has not settled yet.

#include "shell/VUTesterExport.h"

#include <QSizeF>
#include <QString>

#include <functional>

class QObject;

// The handler runs on the main thread with the movie's path, or an empty path and the error;
// never once `context` is gone.
VUTESTER_EXPORT void VUTesterMakeTestPatternMovie(QSizeF size, double duration, QObject *context,
                                                  std::function<void(const QString &path, const QString &error)> handler);
