#include "VHSystemLibraryPathManager.h"

#include "VHPhotoLibrary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

VHSystemLibraryPathManager::VHSystemLibraryPathManager(QString libraryLocation)
    : m_libraryLocation(std::move(libraryLocation))
{
}

VHSystemLibraryPathManager VHSystemLibraryPathManager::sharedInstance()
{
    return VHSystemLibraryPathManager(VHPhotoLibrary::sharedLibraryLocation());
}

QString VHSystemLibraryPathManager::temporaryFileBackedDebugDirectory(bool create, VHError *error) const
{
    const QString path = QDir::cleanPath(m_libraryLocation + QStringLiteral("/Temporary/FileBackedDebug"));
    if (!create || QFileInfo(path).isDir())
        return path;
    // Only the folders made here are made owner-only: an existing one, or the folder a link there
    // points to, is the user's and keeps its permissions.
    QStringList missing;
    for (QString folder = path; !QFileInfo::exists(folder) && !QDir(folder).isRoot(); folder = QFileInfo(folder).path())
        missing.prepend(folder);
    const QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    // Another process may make one of them at the same time: what counts is the outcome.
    for (const QString &folder : std::as_const(missing))
        QDir().mkdir(folder, ownerOnly);
    if (!QFileInfo(path).isDir()) {
        if (error)
            *error = VHError(QStringLiteral("cannot create the file-backed debug directory %1").arg(path));
        return {};
    }
    return path;
}
