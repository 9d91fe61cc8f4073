#pragma once
// Library services: the folders that belong with a library but are not part of its catalogue.
// The file-backed debug directory is where the library filler puts files instead of importing
// them; it lives inside the library's folder, so a library given with --library keeps its own.

#include "VHTypes.h"

#include <QString>

class VHSystemLibraryPathManager {
public:
    // For the library at `libraryLocation`.
    explicit VHSystemLibraryPathManager(QString libraryLocation);
    // For the shared library, wherever it is when asked.
    static VHSystemLibraryPathManager sharedInstance();

    // The directory's path. With `create`, it is made (owner-only) when missing, and an empty path
    // with an error comes back when that fails; without it the path is returned whether it exists
    // or not.
    QString temporaryFileBackedDebugDirectory(bool create, VHError *error = nullptr) const;

private:
    QString m_libraryLocation;
};
