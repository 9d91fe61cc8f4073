#include "VUTesterTemporaryDirectory.h"

#include <QDir>

QString VUTesterTemporaryDirectory()
{
    const QString variable = qEnvironmentVariable("TMPDIR");
    return QDir::cleanPath(QDir(variable.isEmpty() ? QStringLiteral("/tmp") : variable).absolutePath());
}

QString VUTesterTemporaryFilePath(const QString &fileName)
{
    return QDir(VUTesterTemporaryDirectory()).filePath(fileName);
}
