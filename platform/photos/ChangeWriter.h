#pragma once
// Writes prepared assets into the library so that a process killed at any moment leaves no row
// without its file:
//   1. the file moves are journaled (committed) before any file is touched;
//   2. the files are placed (rename, or a copy renamed into place), never over an existing file;
//   3. the rows are inserted, the touched days marked for the highlights, and the journal entries
//      deleted, in one transaction.
// A failure undoes what was placed. The change holds its owner lock (ChangeLocks) throughout.
// reconcile() finishes the work of changes that were cut short: journal entries whose owner is
// gone belong to changes that never committed, so their files go back to where they came from
// (moves) or are removed (copies). Entries of a change still running, in this process or
// another, are left to it.

#include "AssetImporter.h"
#include "Catalogue.h"
#include "ChangeLocks.h"
#include "LibraryFolder.h"

#include <QList>
#include <QStringList>

namespace photos::detail {

class ChangeWriter {
public:
    ChangeWriter(Catalogue &catalogue, const LibraryFolder &folder, ChangeLocks &locks)
        : m_catalogue(catalogue), m_folder(folder), m_locks(locks)
    {
    }

    bool apply(QList<PreparedAsset> &assets, QString *error);
    // Returns what it did, one line per file, for the log. Throws DatabaseError.
    QStringList reconcile();

private:
    void _undo(const QList<PendingFile> &placed, const QList<PendingFile> &journal);

    Catalogue &m_catalogue;
    const LibraryFolder &m_folder;
    ChangeLocks &m_locks;
};

} // namespace photos::detail
