#pragma once
// The library's folder on disk: where originals go, how a file is placed there without ever
// overwriting one, and the check that keeps every path the catalogue names inside the folder.
// The folder's own path is resolved once, when the object is made: links on the way to it (a
// linked home or data folder) are followed, while links inside it are refused.

#include <QString>

namespace photos::detail {

class LibraryFolder {
public:
    explicit LibraryFolder(QString root);

    // Creates the folder and its originals folder, owner-only. False with a reason on failure.
    bool create(QString *error) const;

    const QString &root() const { return m_root; }
    QString databasePath() const;
    QString originalsPath() const;
    // The lock file of the changes in flight (see ChangeLocks).
    QString changeLockPath() const;
    // Whether this user may create files in the folder and change its catalogue.
    bool isWritable() const;
    // Whether any original file is there (the catalogue must then be too).
    bool holdsOriginals() const;

    // A fresh relative path for an original: originals/<first uuid digit>/<uuid>.<suffix>.
    static QString originalPathFor(const QString &uuid, const QString &suffix);

    // The absolute path of a relative one, or empty when it would lead out of the folder (absolute,
    // "..", or a symbolic link that resolves elsewhere).
    QString resolve(const QString &relativePath) const;

    // Moves (or copies) an outside file to a relative destination that must not exist yet. A move
    // across file systems is a copy followed by removing the source. The destination is complete
    // or absent: copies are written beside it and renamed into place.
    bool place(const QString &source, const QString &relativeDestination, bool move, QString *error) const;
    // Undoes place(): a moved file goes back to its source (never over a file that appeared there
    // since), a copied one is removed. Also clears a partial copy.
    bool unplace(const QString &source, const QString &relativeDestination, bool moved, QString *error) const;

    static QString partialSuffix() { return QStringLiteral(".partial"); }

private:
    QString m_root;
};

} // namespace photos::detail
