#pragma once
// The texts a diagnostics cell shows for a library object, and the asset of its thumbnail. The
// cell and the command line both show exactly these.

#include "diagnostics/VUTesterDiagnosticsObject.h"

#include "media/VUTesterDateFormatter.h"
#include "shell/VUTesterExport.h"

#include <QStringList>

#include <limits>

struct VUTESTER_EXPORT VUTesterVistraKitObjectDiagnosticsContent {
    // The index of a cell that shows no row.
    static constexpr qint64 kNotFound = std::numeric_limits<qint64>::max();

    QString title;
    QString subtitle;
    QStringList propertyLines;
    VHAsset thumbnailAsset; // invalid: no thumbnail

    // `index` and `count` are the row and the number of rows of its section; a count of at least
    // 1 numbers the title. Dates are formatted by `dateFormatter` ("MMM d, yyyy").
    static VUTesterVistraKitObjectDiagnosticsContent contentForObject(const VUTesterDiagnosticsObject &object, qint64 index,
                                                                      qint64 count, const VUTesterDateFormatter &dateFormatter);
    // The formatter the cells use.
    static VUTesterDateFormatter defaultDateFormatter();
};
