#include "VHSystemLibraryPathManager.h"

#include "VHPhotoLibrary.h"

#include <QDir>
#include <QFile>

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
    if (!create)
        return path;
    const QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    if (!QDir().mkpath(path) || !QFile::setPermissions(path, ownerOnly)) {
        if (error)
            *error = VHError(QStringLiteral("cannot create the file-backed debug directory %1").arg(path));
        return {};
    }
    return path;
}
