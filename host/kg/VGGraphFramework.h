#pragma once
// Where the knowledge-graph framework keeps its resources: one folder holding a language folder
// per language ("en.lproj", "de.lproj", ...) with the title formats of curated stories. The
// folder ships inside the host's binary; tests and tools may point elsewhere.

#include <QString>

namespace VGGraphFramework {

// The framework folder; the built-in one unless setPath chose another.
QString path();
// An empty path returns to the built-in folder.
void setPath(const QString &path);

} // namespace VGGraphFramework
