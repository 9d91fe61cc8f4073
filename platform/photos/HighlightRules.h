#pragma once
// The rules that turn assets into highlights: how assets are scored, which are curated, how a
// highlight is titled and promoted. Pure functions of their inputs, so the same library always
// yields the same highlights, whatever order its assets arrived in.
//
// Periods come from each asset's local capture time (the wall clock where it was taken), never
// from UTC, so a photo taken at 23:30 in Tokyo belongs to that Tokyo day wherever it is imported.
// - Days: one per calendar day holding a visible asset.
// - Months and years: one per calendar month / year holding a visible asset.
// - Day groups: inside one calendar month, a maximal run of days with assets in which consecutive
//   days are at most two days apart (one empty day does not split a trip).
//
// Curation of a highlight, from a pool ordered by local time (ties by asset id):
// - a day's pool is its visible assets; a day group's and a month's pool is the union of their days'
//   extended curations; a year's pool is the union of its months' extended curations;
// - curated assets: up to 50 chosen by time spread from the pool; extended: up to 20 chosen the same
//   way from the curated ones; summary: up to 6 from the extended ones (so each nests in the last);
// - time spread: cut the ordered list into k equal runs and keep the best-scored asset of each,
//   so a long day is represented from morning to evening and not by one burst;
// - the key asset is the best-scored asset of the summary.
// Days and day groups whose assets carry a place are titled by it, with their date range as the
// subtitle; the others are titled by their dates, with their counts as the subtitle.
// An asset's score rewards a favourite (4), a moving-photo pair (1), a place (0.5), a still photo
// over a movie (0.5) and resolution (up to 1 at 12 megapixels); equal scores go to the earlier
// asset, then the lower id.

#include <QDate>
#include <QString>
#include <QVector>

namespace photos::detail {

struct Candidate {
    qint64 id = 0;
    qint64 localSeconds = 0;
    qint64 creationMs = 0;
    double score = 0;
    bool isVideo = false;
    bool located = false;
    bool favorite = false;
    double latitude = 0;  // when located
    double longitude = 0;
};

struct HighlightTotals {
    qint64 assetCount = 0;
    qint64 photoCount = 0;
    qint64 videoCount = 0;
    qint64 locatedCount = 0;
    qint64 favoriteCount = 0;
    qint64 startMs = 0;
    qint64 endMs = 0;

    void add(const Candidate &candidate);
    void add(const HighlightTotals &other);
};

struct Curation {
    QVector<qint64> curated;
    QVector<qint64> extended;
    QVector<qint64> summary;
    qint64 keyAssetId = 0; // 0 when the pool is empty
};

namespace HighlightRules {

inline constexpr int kCuratedLimit = 50;
inline constexpr int kExtendedLimit = 20;
inline constexpr int kSummaryLimit = 6;
// A highlight with fewer visible assets is shown but not called curated.
inline constexpr int kCuratedMinimum = 3;
// Days further apart than this start a new day group.
inline constexpr int kDayGroupMaximumGap = 2;

double assetScore(bool isVideo, bool isMovingPhoto, qint64 pixelCount, bool located, bool favorite);
// `pool` is ordered by local time, then id.
QVector<Candidate> spread(const QVector<Candidate> &pool, int count);
Curation curate(const QVector<Candidate> &pool);
// 0 to 1: grows with the number of assets (saturating at 100), favourites and places.
double promotionScore(const HighlightTotals &totals);
bool isCurated(const HighlightTotals &totals);
// Enriched: at least one asset carries a place, so the highlight can be told by where it happened.
bool isEnriched(const HighlightTotals &totals);

QString dayTitle(const QDate &day);
QString dayGroupTitle(const QDate &first, const QDate &last);
QString monthTitle(int year, int month);
// The place a day or a trip happened: the named place of the key asset, or else the one most of
// the located assets of the pool share (the earliest of equals); empty when none has a name.
QString placeTitle(const QVector<Candidate> &pool, qint64 keyAssetId);
// A date range as a person reads it: "12 March 2024", "12 – 14 March 2024",
// "30 March – 2 April 2024", "30 December 2023 – 2 January 2024".
QString dateRangeText(const QDate &first, const QDate &last);
QString yearTitle(int year);
// "3 Photos, 1 Video"
QString subtitle(const HighlightTotals &totals);

} // namespace HighlightRules

} // namespace photos::detail
