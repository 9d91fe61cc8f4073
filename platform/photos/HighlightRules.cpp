#include "HighlightRules.h"

#include "PlaceNames.h"

#include <QCoreApplication>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <cmath>

namespace photos::detail {

void HighlightTotals::add(const Candidate &candidate)
{
    startMs = assetCount == 0 ? candidate.creationMs : std::min(startMs, candidate.creationMs);
    endMs = assetCount == 0 ? candidate.creationMs : std::max(endMs, candidate.creationMs);
    ++assetCount;
    ++(candidate.isVideo ? videoCount : photoCount);
    locatedCount += candidate.located;
    favoriteCount += candidate.favorite;
}

void HighlightTotals::add(const HighlightTotals &other)
{
    if (other.assetCount == 0)
        return;
    startMs = assetCount == 0 ? other.startMs : std::min(startMs, other.startMs);
    endMs = assetCount == 0 ? other.endMs : std::max(endMs, other.endMs);
    assetCount += other.assetCount;
    photoCount += other.photoCount;
    videoCount += other.videoCount;
    locatedCount += other.locatedCount;
    favoriteCount += other.favoriteCount;
}

namespace HighlightRules {

namespace {

// Better first: higher score, then earlier, then lower id.
bool better(const Candidate &a, const Candidate &b)
{
    if (a.score != b.score)
        return a.score > b.score;
    if (a.localSeconds != b.localSeconds)
        return a.localSeconds < b.localSeconds;
    return a.id < b.id;
}

QVector<qint64> ids(const QVector<Candidate> &candidates)
{
    QVector<qint64> list;
    list.reserve(candidates.size());
    for (const Candidate &candidate : candidates)
        list.append(candidate.id);
    return list;
}

QString counted(qint64 count, const char *one, const char *many)
{
    return QCoreApplication::translate("VHHighlight", count == 1 ? one : many).arg(QLocale().toString(count));
}

} // namespace

double assetScore(bool isVideo, bool isMovingPhoto, qint64 pixelCount, bool located, bool favorite)
{
    double score = std::min(1.0, double(pixelCount) / 12e6);
    if (favorite)
        score += 4;
    if (isMovingPhoto)
        score += 1;
    if (located)
        score += 0.5;
    if (!isVideo)
        score += 0.5;
    return score;
}

QVector<Candidate> spread(const QVector<Candidate> &pool, int count)
{
    if (pool.size() <= count)
        return pool;
    QVector<Candidate> chosen;
    chosen.reserve(count);
    const qint64 size = pool.size();
    for (int run = 0; run < count; ++run) {
        const auto begin = pool.begin() + run * size / count;
        const auto end = pool.begin() + (run + 1) * size / count;
        chosen.append(*std::min_element(begin, end, better));
    }
    return chosen;
}

Curation curate(const QVector<Candidate> &pool)
{
    const QVector<Candidate> curated = spread(pool, kCuratedLimit);
    const QVector<Candidate> extended = spread(curated, kExtendedLimit);
    const QVector<Candidate> summary = spread(extended, kSummaryLimit);
    Curation curation{ids(curated), ids(extended), ids(summary), 0};
    if (!summary.isEmpty())
        curation.keyAssetId = std::min_element(summary.begin(), summary.end(), better)->id;
    return curation;
}

double promotionScore(const HighlightTotals &totals)
{
    if (totals.assetCount == 0)
        return 0;
    const double volume = std::min(1.0, std::log1p(double(totals.assetCount)) / std::log1p(100.0));
    const double favorites = std::min(1.0, double(totals.favoriteCount) / 3.0);
    const double places = double(totals.locatedCount) / double(totals.assetCount);
    // Rounded so that the stored value and every printed form agree from run to run.
    return std::round((0.6 * volume + 0.25 * favorites + 0.15 * places) * 1000.0) / 1000.0;
}

bool isCurated(const HighlightTotals &totals)
{
    return totals.assetCount >= kCuratedMinimum;
}

bool isEnriched(const HighlightTotals &totals)
{
    return totals.locatedCount > 0;
}

QString dayTitle(const QDate &day)
{
    return QLocale().toString(day, QLocale::LongFormat);
}

QString dayGroupTitle(const QDate &first, const QDate &last)
{
    if (first == last)
        return dayTitle(first);
    const QLocale locale;
    return QStringLiteral("%1 – %2").arg(locale.toString(first, QStringLiteral("d MMMM")),
                                         locale.toString(last, QStringLiteral("d MMMM yyyy")));
}

QString monthTitle(int year, int month)
{
    return QStringLiteral("%1 %2").arg(QLocale().standaloneMonthName(month), QString::number(year));
}

QString placeTitle(const QVector<Candidate> &pool, qint64 keyAssetId)
{
    QStringList names; // in pool order, so the first of equal counts is the earliest
    QHash<QString, int> counts;
    for (const Candidate &candidate : pool) {
        if (!candidate.located)
            continue;
        const QString name = PlaceNames::nameOfPlace(candidate.latitude, candidate.longitude);
        if (name.isEmpty())
            continue;
        if (candidate.id == keyAssetId)
            return name;
        if (counts[name]++ == 0)
            names << name;
    }
    QString best;
    for (const QString &name : std::as_const(names))
        if (best.isEmpty() || counts.value(name) > counts.value(best))
            best = name;
    return best;
}

QString dateRangeText(const QDate &first, const QDate &last)
{
    const QLocale locale;
    const QString full = QStringLiteral("d MMMM yyyy");
    if (first == last)
        return locale.toString(first, full);
    if (first.year() == last.year() && first.month() == last.month())
        return QStringLiteral("%1 – %2").arg(QString::number(first.day()), locale.toString(last, full));
    if (first.year() == last.year())
        return QStringLiteral("%1 – %2").arg(locale.toString(first, QStringLiteral("d MMMM")), locale.toString(last, full));
    return QStringLiteral("%1 – %2").arg(locale.toString(first, full), locale.toString(last, full));
}

QString yearTitle(int year)
{
    return QString::number(year);
}

QString subtitle(const HighlightTotals &totals)
{
    QStringList parts;
    if (totals.photoCount > 0)
        parts << counted(totals.photoCount, "%1 Photo", "%1 Photos");
    if (totals.videoCount > 0)
        parts << counted(totals.videoCount, "%1 Video", "%1 Videos");
    return parts.join(QStringLiteral(", "));
}

} // namespace HighlightRules

} // namespace photos::detail
