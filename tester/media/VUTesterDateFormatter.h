#pragma once
// Formats dates with a fixed pattern, locale and the local time zone. The pattern uses the usual
// date-format letters (yyyy MM dd HH mm ss, 'quoted' literals) plus Z for the zone offset as
// +hhmm. Formatting only reads the formatter, so one instance may serve many threads at once.

#include "shell/VUTesterExport.h"

#include <QDateTime>
#include <QLocale>
#include <QString>

#include <vector>

class VUTESTER_EXPORT VUTesterDateFormatter {
public:
    explicit VUTesterDateFormatter(const QString &pattern, const QLocale &locale = QLocale());

    // The date in local time; empty for an invalid date.
    QString stringFromDate(const QDateTime &date) const;

    const QLocale &locale() const { return m_locale; }

private:
    // The pattern cut at each zone letter: Qt formats the pieces, the offsets go between them.
    std::vector<QString> m_pieces;
    QLocale m_locale;
};
