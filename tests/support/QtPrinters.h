#pragma once
// Readable GoogleTest output for Qt values.

#include <QString>
#include <QStringList>

#include <ostream>

inline void PrintTo(const QString &value, std::ostream *os)
{
    *os << '"' << value.toStdString() << '"';
}

inline void PrintTo(const QStringList &list, std::ostream *os)
{
    *os << '[' << list.join(QStringLiteral(" | ")).toStdString() << ']';
}
