#pragma once
// The catalogue's rows as plain values: what an asset and its files are, before any public class
// wraps them.

#include "VHTypes.h"

#include "movie/MediaTime.h"

#include <QString>

#include <optional>

namespace photos::detail {

inline constexpr qint64 kSecondsPerDay = 86400;

// Days since 1970-01-01 of a local wall-clock time counted in seconds as if it were UTC.
inline qint64 localDayOf(qint64 localSeconds)
{
    return localSeconds >= 0 ? localSeconds / kSecondsPerDay : -((-localSeconds + kSecondsPerDay - 1) / kSecondsPerDay);
}

struct AssetRecord {
    qint64 id = 0;
    QString uuid;
    VHAssetMediaType mediaType = VHAssetMediaType::Unknown;
    quint64 mediaSubtypes = 0;
    int pixelWidth = 0;
    int pixelHeight = 0;
    qint64 creationMs = 0;   // the capture instant, milliseconds since 1970 UTC
    qint64 localSeconds = 0; // the wall clock where it was captured, counted as if it were UTC
    std::optional<VHLocation> location;
    double duration = 0;
    bool favorite = false;
    bool hidden = false;
    QString pairingIdentifier;
    movie::MediaTime imageDisplayTime;
    qint64 addedMs = 0;
};

struct ResourceRecord {
    VHAssetResourceType type = VHAssetResourceType::Photo;
    QString relativePath; // inside the library folder, '/' separated
    qint64 size = 0;
    QString originalFilename;
};

struct CollectionRecord {
    qint64 id = 0;
    QString uuid;
    int subtype = 0;
    qint64 localStart = 0; // seconds, inclusive, on the local wall clock
    qint64 localEnd = 0;   // exclusive
    qint64 startMs = 0;
    qint64 endMs = 0;
    QString title;
    QString subtitle;
    qint64 assetCount = 0;
    qint64 photoCount = 0;
    qint64 videoCount = 0;
    bool curated = false;
    bool enriched = false;
    double promotionScore = 0;
    qint64 keyAssetId = 0;
};

} // namespace photos::detail
