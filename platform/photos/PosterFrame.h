#pragma once
// The first picture of a movie, decoded with FFmpeg and turned upright by the track's display
// transform, for thumbnails of video assets.

#include <QImage>
#include <QString>

namespace photos::detail {

// A null image and an error when the file has no decodable video. `maximumSize` bounds the result
// (aspect kept); an empty size keeps the movie's own size.
QImage decodePosterFrame(const QString &path, const QSize &maximumSize, QString *error);

} // namespace photos::detail
