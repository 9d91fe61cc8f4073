#pragma once
// Keeps the highlight rows of the catalogue in step with its assets. A change marks the local days
// it touched (in its own transaction, so the mark survives a crash); refreshDirty() rebuilds those
// days and then only the day groups, months and years that contain them, each parent from its
// children's rows. Runs on the writer connection only.

#include "Database.h"
#include "HighlightRules.h"

#include <set>

namespace photos::detail {

class HighlightStore {
public:
    explicit HighlightStore(Database &writer) : m_db(writer) {}

    // Inside the caller's transaction.
    void markDirty(qint64 day);
    bool hasDirtyDays();
    // Each runs in a transaction of its own.
    void refreshDirty();
    void rebuildAll();

private:
    struct Period {
        int subtype;
        qint64 key;
        qint64 localStart; // seconds, inclusive
        qint64 localEnd;   // seconds, exclusive
        QString title; // of the dates
        // Days and day groups: the last day covered (the key is the first), so that a place may
        // title them; -1 for the periods that are always titled by their dates.
        qint64 lastDay = -1;
    };

    void refreshDays(const std::set<qint64> &days);
    void writeDay(qint64 day, const QVector<Candidate> &pool);
    void refreshParents(const std::set<qint64> &days);
    void refreshFromChildren(const Period &period, int childSubtype, qint64 firstChild, qint64 lastChild);
    void refreshDayGroups(int year, int month);
    void write(const Period &period, const HighlightTotals &totals, const QVector<Candidate> &pool);
    void remove(int subtype, qint64 key);

    Database &m_db;
};

} // namespace photos::detail
