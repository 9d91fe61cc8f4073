#pragma once
// Turns a creation request into the rows and file placements of one asset, reading every file's
// own metadata first. Nothing is touched here: a request that fails leaves no trace.

#include "AssetRecord.h"

#include <QDateTime>
#include <QString>

#include <vector>

class VHAssetCreationRequest;

namespace photos::detail {

struct PreparedFile {
    QString source;
    bool move = false;
    ResourceRecord resource;
};

struct PreparedAsset {
    AssetRecord record;
    std::vector<PreparedFile> files;
};

class AssetImporter {
public:
    // False with a clear error for an unusable request: wrong resource kinds, missing or unreadable
    // files, a photo and paired video that do not belong together.
    static bool prepare(const VHAssetCreationRequest &request, PreparedAsset *asset, QString *error);

    // Splits a capture date into its UTC instant and the wall clock where it was taken. A date in
    // UTC is shown on this machine's clock; local and offset dates keep their own wall clock.
    static void captureTimes(const QDateTime &date, qint64 *creationMs, qint64 *localSeconds);
};

} // namespace photos::detail
