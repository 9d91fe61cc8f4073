#include "VGBundle.h"

#include <QDir>
#include <QLoggingCategory>

Q_LOGGING_CATEGORY(lcGraphStrings, "vistra.graph.strings")

bool VGBundle::loadTable(const QString &table, const VGStringTable **result, QString *error) const
{
    const QString name = table.isEmpty() ? QStringLiteral("Localizable") : table;
    auto it = m_tables.find(name);
    if (it == m_tables.end()) {
        Loaded loaded;
        if (!VGStringTable::load(QDir(m_path).filePath(name + QStringLiteral(".strings")), &loaded.table, &loaded.error))
            qCWarning(lcGraphStrings).noquote() << loaded.error;
        it = m_tables.insert(name, std::move(loaded));
    }
    if (!it->error.isEmpty()) {
        if (error)
            *error = it->error;
        return false;
    }
    *result = &it->table;
    return true;
}

QString VGBundle::localizedStringForKey(const QString &key, const QString &value, const QString &table) const
{
    const VGStringTable *strings = nullptr;
    if (!loadTable(table, &strings, nullptr) || !strings->contains(key))
        return value;
    return strings->value(key);
}
