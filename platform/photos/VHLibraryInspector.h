#pragma once
// Looks at a library as a whole: what it holds, and whether its catalogue and its files agree.

#include "VHTypes.h"

#include <QStringList>

class VHPhotoLibrary;

struct VHLibraryStatistics {
    qint64 assetCount = 0;
    qint64 photoCount = 0;       // still photos, moving photos included
    qint64 movingPhotoCount = 0;
    qint64 videoCount = 0;
    qint64 highlightCount = 0;
    qint64 bytesOnDisk = 0;      // every file under the library's folder, catalogue included
};

class VHLibraryInspector {
public:
    static bool statistics(VHPhotoLibrary &library, VHLibraryStatistics *statistics, VHError *error);
    // One line per difference between the catalogue and the files: missing or resized files, files
    // the catalogue does not know, unfinished changes, a damaged catalogue. Empty when all agree.
    static bool verify(VHPhotoLibrary &library, QStringList *differences, VHError *error);
};
