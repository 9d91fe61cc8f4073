#pragma once
// Real photo and movie files with metadata, written with the platform's own writers, for the photo
// library's tests and benchmarks.

#include <QDateTime>
#include <QSize>
#include <QString>

#include <optional>

namespace photos::testing {

struct MediaSpec {
    QSize size{64, 48};
    QDateTime captureDate; // photos: the wall clock (any time spec); movies: kept with its offset
    std::optional<std::pair<double, double>> location;
    QString pairingIdentifier;
};

// False (with a test failure message through `error`) when the writer fails.
bool writePhoto(const QString &path, const MediaSpec &spec, QString *error = nullptr);
bool writeMovie(const QString &path, const MediaSpec &spec, QString *error = nullptr);

} // namespace photos::testing
