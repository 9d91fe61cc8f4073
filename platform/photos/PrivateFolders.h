#pragma once
// Folders of this user in places others share (the temporary folder), where a name can be taken
// first by someone else: they are used only when they really are this user's own directories.
// And the removal of such folders, which never reaches through a link.

#include <QString>

namespace photos {

// Creates the directory owner-only when it is missing. An existing one is used only when it is a
// directory (not a link to one) owned by this user, and is then made owner-only; anything else
// is refused with a reason and left untouched.
bool makePrivateFolder(const QString &path, QString *error);

// This process's own folder for files on their way into a library (the filler's photos and
// movies before they move): "<TMPDIR>/<application>-<uid>/<pid>-<start time>", removed when the
// process ends normally. Empty with a reason when it cannot be made.
QString processTemporaryFolder(QString *error);

// Removes the folders that processes which have ended (killed, crashed) left there. The first
// processTemporaryFolder() call does this too; the application also does it when it starts.
void removeTemporaryFoldersOfEndedProcesses();

// Removes a file or a folder with everything in it. A link, at the top or inside, is removed
// itself; what it points to is left alone. Nothing there is no failure. False with the system's
// reason otherwise.
bool removeTree(const QString &path, QString *error);

} // namespace photos
