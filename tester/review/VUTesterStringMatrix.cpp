#include "review/VUTesterStringMatrix.h"

#include <QSaveFile>

void VUTesterStringMatrix::setString(const QString &string, const QString &column, const QString &row)
{
    if (!_columns.contains(column))
        _columns.append(column);
    if (!_rows.contains(row))
        _rows.append(row);
    _matrix[row].insert(column, string);
}

QString VUTesterStringMatrix::tabSeparatedText() const
{
    QString text = QLatin1Char('\t') + _columns.join(QLatin1Char('\t')) + QLatin1Char('\n');
    for (const QString &row : _rows) {
        text += row;
        const QHash<QString, QString> cells = _matrix.value(row);
        for (const QString &column : _columns)
            text += QLatin1Char('\t') + cells.value(column);
        text += QLatin1Char('\n');
    }
    return text;
}

bool VUTesterStringMatrix::writeToFile(const QString &path, QString *error) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(tabSeparatedText().toUtf8()) < 0 || !file.commit()) {
        if (error)
            *error = QStringLiteral("couldn't write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}
