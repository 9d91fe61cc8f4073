#pragma once
// Where the module's resources come from: the module's own library file and the resources built
// into it.

#include "shell/VUTesterExport.h"

#include <QString>

class VUTESTER_EXPORT VUTesterBundle {
public:
    // The file of the shared library that holds the module's classes.
    QString libraryPath() const { return m_libraryPath; }
    // The prefix of the module's built-in resources (fonts, images, string tables).
    QString resourcePrefix() const { return QStringLiteral(":/VistraUITester"); }
    QString pathForResource(const QString &name) const { return resourcePrefix() + QLatin1Char('/') + name; }

private:
    friend VUTESTER_EXPORT const VUTesterBundle &vutester_VistraUITesterFrameworkBundle();
    QString m_libraryPath;
};

// Looked up once, then cached.
VUTESTER_EXPORT const VUTesterBundle &vutester_VistraUITesterFrameworkBundle();
