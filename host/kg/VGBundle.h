#pragma once
// One language folder of a framework ("de.lproj"): its string tables, each read and parsed on
// first use. A table that cannot be read or parsed is reported once, with the file and the place
// of the fault, and then answers nothing.

#include "VGStringTable.h"

#include <QHash>
#include <QString>

class VGBundle {
public:
    explicit VGBundle(QString path) : m_path(std::move(path)) {}

    const QString &path() const { return m_path; }
    // The text for `key` in `table` ("Localizable", the default table, when empty); `value` when
    // the table has no such key.
    QString localizedStringForKey(const QString &key, const QString &value = QString(), const QString &table = QString()) const;
    // The parsed table, or false with the reason (the same reason each time).
    bool loadTable(const QString &table, const VGStringTable **result, QString *error) const;

private:
    struct Loaded {
        VGStringTable table;
        QString error;
    };
    QString m_path;
    mutable QHash<QString, Loaded> m_tables;
};
