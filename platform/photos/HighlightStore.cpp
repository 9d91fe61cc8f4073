#include "HighlightStore.h"

#include "AssetRecord.h"
#include "VHTypes.h"

#include <QUuid>

#include <map>

namespace photos::detail {

namespace {

enum CurationKind : qint64 { KindSummary = 1, KindExtended = 2, KindCurated = 3 };

#define VH_CANDIDATE_COLUMNS                                                                       \
    "a.id, a.local_seconds, a.creation_ms, a.media_type, a.media_subtypes,"                        \
    " a.pixel_width * a.pixel_height, a.latitude IS NOT NULL, a.favorite, a.latitude, a.longitude"

Candidate candidateFrom(const Statement &row)
{
    Candidate candidate;
    candidate.id = row.int64(0);
    candidate.localSeconds = row.int64(1);
    candidate.creationMs = row.int64(2);
    candidate.isVideo = row.int64(3) == qint64(VHAssetMediaType::Video);
    candidate.located = row.int64(6) != 0;
    candidate.favorite = row.int64(7) != 0;
    if (candidate.located) {
        candidate.latitude = row.real(8);
        candidate.longitude = row.real(9);
    }
    const bool moving = (quint64(row.int64(4)) & VHAssetMediaSubtypePhotoMoving) != 0;
    candidate.score = HighlightRules::assetScore(candidate.isVideo, moving, row.int64(5), candidate.located,
                                                 candidate.favorite);
    return candidate;
}

QDate dateOfDay(qint64 day)
{
    return QDate(1970, 1, 1).addDays(day);
}

qint64 dayOfDate(const QDate &date)
{
    return QDate(1970, 1, 1).daysTo(date);
}

qint64 monthKey(const QDate &date)
{
    return qint64(date.year()) * 12 + date.month() - 1;
}

// Highlight identifiers follow from what they cover, so they survive a rebuild.
QString highlightUuid(int subtype, qint64 key)
{
    static const QUuid kNamespace(QStringLiteral("{6f1c2b0e-8a3d-4f51-9c57-0d7e4b1a9e20}"));
    return QUuid::createUuidV5(kNamespace, QStringLiteral("%1/%2").arg(subtype).arg(key))
        .toString(QUuid::WithoutBraces)
        .toUpper();
}

} // namespace

void HighlightStore::markDirty(qint64 day)
{
    m_db.prepare("INSERT OR IGNORE INTO highlight_dirty (day) VALUES (?)").bind(1, day).run();
}

bool HighlightStore::hasDirtyDays()
{
    auto query = m_db.prepare("SELECT EXISTS (SELECT 1 FROM highlight_dirty)");
    return query.next() && query.int64(0) != 0;
}

void HighlightStore::refreshDirty()
{
    Transaction transaction(m_db);
    std::set<qint64> days;
    {
        auto query = m_db.prepare("SELECT day FROM highlight_dirty");
        while (query.next())
            days.insert(query.int64(0));
    }
    refreshDays(days);
    refreshParents(days);
    m_db.exec("DELETE FROM highlight_dirty");
    transaction.commit();
}

void HighlightStore::rebuildAll()
{
    Transaction transaction(m_db);
    m_db.exec("DELETE FROM highlight; DELETE FROM highlight_dirty;");
    std::set<qint64> days;
    QVector<Candidate> pool;
    qint64 currentDay = 0;
    auto query = m_db.prepare("SELECT " VH_CANDIDATE_COLUMNS " FROM asset a WHERE a.hidden = 0"
                              " ORDER BY a.local_seconds, a.id");
    while (query.next()) {
        const Candidate candidate = candidateFrom(query);
        const qint64 day = localDayOf(candidate.localSeconds);
        if (!pool.isEmpty() && day != currentDay) {
            writeDay(currentDay, pool);
            pool.clear();
        }
        currentDay = day;
        days.insert(day);
        pool.append(candidate);
    }
    if (!pool.isEmpty())
        writeDay(currentDay, pool);
    refreshParents(days);
    transaction.commit();
}

void HighlightStore::refreshDays(const std::set<qint64> &days)
{
    for (qint64 day : days) {
        QVector<Candidate> pool;
        auto query = m_db.prepare("SELECT " VH_CANDIDATE_COLUMNS " FROM asset a WHERE a.hidden = 0"
                                  " AND a.local_seconds >= ? AND a.local_seconds < ? ORDER BY a.local_seconds, a.id");
        query.bind(1, day * kSecondsPerDay).bind(2, (day + 1) * kSecondsPerDay);
        while (query.next())
            pool.append(candidateFrom(query));
        if (pool.isEmpty())
            remove(VHAssetCollectionSubtypeHighlightDays, day);
        else
            writeDay(day, pool);
    }
}

void HighlightStore::writeDay(qint64 day, const QVector<Candidate> &pool)
{
    HighlightTotals totals;
    for (const Candidate &candidate : pool)
        totals.add(candidate);
    const Period period{VHAssetCollectionSubtypeHighlightDays, day, day * kSecondsPerDay, (day + 1) * kSecondsPerDay,
                        HighlightRules::dayTitle(dateOfDay(day)), day};
    write(period, totals, pool);
}

void HighlightStore::refreshParents(const std::set<qint64> &days)
{
    std::map<qint64, QDate> months; // month key -> its first day
    std::set<int> years;
    for (qint64 day : days) {
        const QDate date = dateOfDay(day);
        months.emplace(monthKey(date), QDate(date.year(), date.month(), 1));
        years.insert(date.year());
    }
    for (const auto &[key, first] : months) {
        const QDate next = first.addMonths(1);
        const Period period{VHAssetCollectionSubtypeHighlightMonths, key, dayOfDate(first) * kSecondsPerDay,
                            dayOfDate(next) * kSecondsPerDay, HighlightRules::monthTitle(first.year(), first.month())};
        refreshFromChildren(period, VHAssetCollectionSubtypeHighlightDays, dayOfDate(first), dayOfDate(next) - 1);
        refreshDayGroups(first.year(), first.month());
    }
    for (int year : years) {
        const Period period{VHAssetCollectionSubtypeHighlightYears, year,
                            dayOfDate(QDate(year, 1, 1)) * kSecondsPerDay,
                            dayOfDate(QDate(year + 1, 1, 1)) * kSecondsPerDay, HighlightRules::yearTitle(year)};
        refreshFromChildren(period, VHAssetCollectionSubtypeHighlightMonths, qint64(year) * 12, qint64(year) * 12 + 11);
    }
}

void HighlightStore::refreshFromChildren(const Period &period, int childSubtype, qint64 firstChild, qint64 lastChild)
{
    HighlightTotals totals;
    {
        auto sums = m_db.prepare(
            "SELECT asset_count, photo_count, video_count, located_count, favorite_count, start_ms, end_ms"
            " FROM highlight WHERE subtype = ? AND period_key BETWEEN ? AND ?");
        sums.bind(1, qint64(childSubtype)).bind(2, firstChild).bind(3, lastChild);
        while (sums.next())
            totals.add(HighlightTotals{sums.int64(0), sums.int64(1), sums.int64(2), sums.int64(3), sums.int64(4),
                                       sums.int64(5), sums.int64(6)});
    }
    if (totals.assetCount == 0) {
        remove(period.subtype, period.key);
        return;
    }
    QVector<Candidate> pool;
    auto query = m_db.prepare("SELECT " VH_CANDIDATE_COLUMNS " FROM highlight h"
                              " JOIN highlight_asset ha ON ha.highlight_id = h.id AND ha.kind = 2"
                              " JOIN asset a ON a.id = ha.asset_id"
                              " WHERE h.subtype = ? AND h.period_key BETWEEN ? AND ?"
                              " ORDER BY a.local_seconds, a.id");
    query.bind(1, qint64(childSubtype)).bind(2, firstChild).bind(3, lastChild);
    while (query.next())
        pool.append(candidateFrom(query));
    write(period, totals, pool);
}

void HighlightStore::refreshDayGroups(int year, int month)
{
    const QDate first(year, month, 1);
    const qint64 firstDay = dayOfDate(first);
    const qint64 lastDay = dayOfDate(first.addMonths(1)) - 1;
    m_db.prepare("DELETE FROM highlight WHERE subtype = ? AND period_key BETWEEN ? AND ?")
        .bind(1, qint64(VHAssetCollectionSubtypeHighlightDayGroups))
        .bind(2, firstDay)
        .bind(3, lastDay)
        .run();

    QVector<qint64> days;
    {
        auto query = m_db.prepare("SELECT period_key FROM highlight WHERE subtype = ? AND period_key BETWEEN ? AND ?"
                                  " ORDER BY period_key");
        query.bind(1, qint64(VHAssetCollectionSubtypeHighlightDays)).bind(2, firstDay).bind(3, lastDay);
        while (query.next())
            days.append(query.int64(0));
    }
    for (qsizetype start = 0; start < days.size();) {
        qsizetype end = start;
        while (end + 1 < days.size() && days[end + 1] - days[end] <= HighlightRules::kDayGroupMaximumGap)
            ++end;
        const Period period{VHAssetCollectionSubtypeHighlightDayGroups, days[start], days[start] * kSecondsPerDay,
                            (days[end] + 1) * kSecondsPerDay,
                            HighlightRules::dayGroupTitle(dateOfDay(days[start]), dateOfDay(days[end])), days[end]};
        refreshFromChildren(period, VHAssetCollectionSubtypeHighlightDays, days[start], days[end]);
        start = end + 1;
    }
}

void HighlightStore::write(const Period &period, const HighlightTotals &totals, const QVector<Candidate> &pool)
{
    const Curation curation = HighlightRules::curate(pool);
    QString title = period.title;
    QString subtitle = HighlightRules::subtitle(totals);
    if (period.lastDay >= 0) {
        const QString place = HighlightRules::placeTitle(pool, curation.keyAssetId);
        if (!place.isEmpty()) {
            title = place;
            subtitle = HighlightRules::dateRangeText(dateOfDay(period.key), dateOfDay(period.lastDay));
        }
    }
    auto upsert = m_db.prepare(
        "INSERT INTO highlight (uuid, subtype, period_key, local_start, local_end, start_ms, end_ms, title, subtitle,"
        " asset_count, photo_count, video_count, located_count, favorite_count, curated, enriched, promotion_score,"
        " key_asset_id) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"
        " ON CONFLICT (subtype, period_key) DO UPDATE SET local_start = excluded.local_start,"
        " local_end = excluded.local_end, start_ms = excluded.start_ms, end_ms = excluded.end_ms,"
        " title = excluded.title, subtitle = excluded.subtitle, asset_count = excluded.asset_count,"
        " photo_count = excluded.photo_count, video_count = excluded.video_count,"
        " located_count = excluded.located_count, favorite_count = excluded.favorite_count,"
        " curated = excluded.curated, enriched = excluded.enriched, promotion_score = excluded.promotion_score,"
        " key_asset_id = excluded.key_asset_id");
    upsert.bind(1, highlightUuid(period.subtype, period.key))
        .bind(2, qint64(period.subtype))
        .bind(3, period.key)
        .bind(4, period.localStart)
        .bind(5, period.localEnd)
        .bind(6, totals.startMs)
        .bind(7, totals.endMs)
        .bind(8, title)
        .bind(9, subtitle)
        .bind(10, totals.assetCount)
        .bind(11, totals.photoCount)
        .bind(12, totals.videoCount)
        .bind(13, totals.locatedCount)
        .bind(14, totals.favoriteCount)
        .bind(15, qint64(HighlightRules::isCurated(totals)))
        .bind(16, qint64(HighlightRules::isEnriched(totals)))
        .bind(17, HighlightRules::promotionScore(totals))
        .bind(18, curation.keyAssetId)
        .run();

    qint64 id = 0;
    {
        auto find = m_db.prepare("SELECT id FROM highlight WHERE subtype = ? AND period_key = ?");
        find.bind(1, qint64(period.subtype)).bind(2, period.key);
        if (find.next())
            id = find.int64(0);
    }
    m_db.prepare("DELETE FROM highlight_asset WHERE highlight_id = ?").bind(1, id).run();
    const std::pair<CurationKind, const QVector<qint64> *> lists[] = {
        {KindSummary, &curation.summary}, {KindExtended, &curation.extended}, {KindCurated, &curation.curated}};
    for (const auto &[kind, assets] : lists) {
        for (qsizetype position = 0; position < assets->size(); ++position) {
            m_db.prepare("INSERT INTO highlight_asset (highlight_id, kind, position, asset_id) VALUES (?, ?, ?, ?)")
                .bind(1, id)
                .bind(2, qint64(kind))
                .bind(3, qint64(position))
                .bind(4, assets->at(position))
                .run();
        }
    }
}

void HighlightStore::remove(int subtype, qint64 key)
{
    m_db.prepare("DELETE FROM highlight WHERE subtype = ? AND period_key = ?")
        .bind(1, qint64(subtype))
        .bind(2, key)
        .run();
}

} // namespace photos::detail
