#pragma once
// A table of strings by row and column, rows and columns in the order of first use, written as
// tab-separated text: a header line of the column names after an empty first cell, then one line
// per row, its name first.

#include "shell/VUTesterExport.h"

#include <QHash>
#include <QStringList>

class VUTESTER_EXPORT VUTesterStringMatrix {
public:
    void setString(const QString &string, const QString &column, const QString &row);
    // The stored string, null when the cell is empty.
    QString string(const QString &column, const QString &row) const { return _matrix.value(row).value(column); }
    const QStringList &columns() const { return _columns; }
    const QStringList &rows() const { return _rows; }

    QString tabSeparatedText() const;
    // Writes the text atomically as UTF-8; on failure `error` says why and the file is untouched.
    bool writeToFile(const QString &path, QString *error) const;

private:
    QStringList _columns;
    QStringList _rows;
    QHash<QString, QHash<QString, QString>> _matrix;
};
