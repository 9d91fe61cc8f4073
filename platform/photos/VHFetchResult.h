#pragma once
// An ordered, immutable result of a fetch. It holds only the row identifiers; objects are loaded a
// page at a time when first asked for and kept, so a fetch over a large library costs one index
// scan and a screen that shows a few rows loads only those.

#include "Catalogue.h"
#include "VHPhotoLibrary.h"

#include <QHash>
#include <QMutex>
#include <QVector>

#include <memory>

template <typename T>
class VHFetchResult {
public:
    VHFetchResult() = default;
    VHFetchResult(std::shared_ptr<VHPhotoLibrary> library, QVector<qint64> ids)
        : m_state(std::make_shared<State>(std::move(library), std::move(ids)))
    {
    }

    qsizetype count() const { return m_state ? m_state->ids.size() : 0; }
    bool isEmpty() const { return count() == 0; }
    // Index in range is the caller's promise, as for any array. An object deleted since the fetch
    // comes back invalid.
    T objectAtIndex(qsizetype index) const { return m_state->object(index); }
    T firstObject() const { return isEmpty() ? T() : objectAtIndex(0); }
    T lastObject() const { return isEmpty() ? T() : objectAtIndex(count() - 1); }
    qsizetype indexOfObject(const T &object) const
    {
        return m_state ? m_state->ids.indexOf(object.rowId()) : -1;
    }
    bool containsObject(const T &object) const { return indexOfObject(object) >= 0; }

private:
    static constexpr qsizetype kPageSize = 128;
    using RecordPtr = std::shared_ptr<const typename T::Record>;

    struct State {
        State(std::shared_ptr<VHPhotoLibrary> owner, QVector<qint64> rows) : library(std::move(owner)), ids(std::move(rows)) {}

        T object(qsizetype index)
        {
            const qsizetype page = index / kPageSize;
            QMutexLocker locker(&mutex);
            auto found = pages.constFind(page);
            if (found == pages.constEnd()) {
                const qsizetype first = page * kPageSize;
                const qsizetype end = std::min(ids.size(), first + kPageSize);
                QVector<RecordPtr> records;
                try {
                    library->catalogue().read([&](photos::detail::Database &database) {
                        for (qsizetype row = first; row < end; ++row)
                            records.append(T::loadRecord(database, ids[row]));
                        return 0;
                    });
                } catch (const photos::detail::DatabaseError &) {
                    // An unreadable catalogue yields invalid objects (isValid() false), not a crash.
                }
                records.resize(end - first);
                found = pages.insert(page, records);
            }
            return T(library, found->at(index % kPageSize));
        }

        std::shared_ptr<VHPhotoLibrary> library;
        const QVector<qint64> ids;
        QMutex mutex;
        QHash<qsizetype, QVector<RecordPtr>> pages;
    };

    std::shared_ptr<State> m_state;
};
