#pragma once
// The folder generated photos and movies go to before they reach the library: TMPDIR, or /tmp
// when it is not set.
//
// Unlike QDir::tempPath(), a TMPDIR naming a folder that does not exist is kept as it is, so that
// writing there fails with that folder's name instead of landing in the current folder.

#include "shell/VUTesterExport.h"

#include <QString>

VUTESTER_EXPORT QString VUTesterTemporaryDirectory();

// A file of that name in the temporary folder.
VUTESTER_EXPORT QString VUTesterTemporaryFilePath(const QString &fileName);
