#pragma once
// A string table in the platform's key-value format, as the graph framework's language folders
// hold them:
//
//   /* A comment. */
//   "key" = "value";   // another comment
//   unquotedKey = "value";
//   "key";             (short for "key" = "key";)
//
// Quoted strings take the C escapes (\" \\ \n \t \r \0 ...), octal \ooo and \Uxxxx / \uxxxx
// (a surrogate pair for characters beyond the basic plane). Keys keep the order of the file; a
// later duplicate replaces the value and keeps the first position. Files are UTF-8, or UTF-16
// with a byte order mark.

#include <QHash>
#include <QString>
#include <QStringList>

class VGStringTable {
public:
    // Parses `text`; on a syntax error leaves `table` alone and says where: "line L, column C: ...".
    static bool parse(const QString &text, VGStringTable *table, QString *error);
    // Reads and parses a file; errors begin with the path.
    static bool load(const QString &path, VGStringTable *table, QString *error);

    // A null string when the key is absent.
    QString value(const QString &key) const { return m_values.value(key); }
    bool contains(const QString &key) const { return m_values.contains(key); }
    const QStringList &keys() const { return m_keys; }
    qsizetype size() const { return m_keys.size(); }

private:
    QStringList m_keys;
    QHash<QString, QString> m_values;
};
