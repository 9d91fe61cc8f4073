#pragma once
// Builds and runs the identifier query behind every fetch: a base selection, conditions, the
// caller's sort keys mapped onto columns, and a limit.

#include "VHFetchOptions.h"

#include <QByteArray>
#include <QVector>

#include <variant>

namespace photos::detail {

struct SortColumn {
    const char *key;
    const char *column;
};

struct FetchQuery {
    QByteArray select; // "SELECT a.id FROM asset a ..."
    QList<QByteArray> conditions;
    QList<std::variant<qint64, QString>> bindings;
    QByteArray defaultOrder; // the order when the caller gives no sort keys
    // Appended after the caller's keys in the direction of the last one, so equal keys keep a
    // stable order and an index on (key, tie breaker) serves the query in either direction.
    QByteArray tieBreaker;

    void where(const QByteArray &condition, std::variant<qint64, QString> value)
    {
        conditions.append(condition);
        bindings.append(std::move(value));
    }
};

// The identifiers in order; empty (and a warning) when the library cannot be read.
// `columns` maps sort keys; an unknown key ends the process.
QVector<qint64> runFetch(VHPhotoLibrary &library, const FetchQuery &query, const VHFetchOptions &options,
                         const SortColumn *columns, size_t columnCount);

template <size_t N>
QVector<qint64> runFetch(VHPhotoLibrary &library, const FetchQuery &query, const VHFetchOptions &options,
                         const SortColumn (&columns)[N])
{
    return runFetch(library, query, options, columns, N);
}

} // namespace photos::detail
