#include "LibraryFolder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace photos::detail {

namespace {

const QFileDevice::Permissions kOwnerOnlyDirectory =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

QString systemError(const QString &what, const QString &path)
{
    return QStringLiteral("%1 %2: %3").arg(what, path, QString::fromLocal8Bit(std::strerror(errno)));
}

// rename(2) that fails instead of replacing an existing destination.
bool renameNoReplace(const QString &from, const QString &to, int *errorNumber)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray destination = QFile::encodeName(to);
    if (::renameat2(AT_FDCWD, source.constData(), AT_FDCWD, destination.constData(), RENAME_NOREPLACE) == 0)
        return true;
    *errorNumber = errno;
    return false;
}

bool copyDurably(const QString &source, const QString &partial, QString *error)
{
    QFile in(source);
    if (!in.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot read %1: %2").arg(source, in.errorString());
        return false;
    }
    QFile out(partial);
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        *error = QStringLiteral("cannot write %1: %2").arg(partial, out.errorString());
        return false;
    }
    QByteArray buffer(1 << 20, Qt::Uninitialized);
    for (;;) {
        const qint64 count = in.read(buffer.data(), buffer.size());
        if (count < 0 || (count > 0 && out.write(buffer.constData(), count) != count)) {
            *error = QStringLiteral("cannot copy %1: %2").arg(source, count < 0 ? in.errorString() : out.errorString());
            out.remove();
            return false;
        }
        if (count == 0)
            break;
    }
    if (!out.flush() || ::fdatasync(out.handle()) != 0) {
        *error = systemError(QStringLiteral("cannot write"), partial);
        out.remove();
        return false;
    }
    return true;
}

bool sameContents(const QString &a, const QString &b)
{
    QFile first(a), second(b);
    if (!first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly) || first.size() != second.size())
        return false;
    while (!first.atEnd())
        if (first.read(1 << 20) != second.read(1 << 20))
            return false;
    return true;
}

// The path with every link of its existing part followed; the part that does not exist yet is
// kept as given.
QString resolvedPath(const QString &path)
{
    QString existing = QDir::cleanPath(QDir(path).absolutePath());
    QStringList missing;
    while (!QFileInfo::exists(existing) && !QDir(existing).isRoot()) {
        missing.prepend(QFileInfo(existing).fileName());
        existing = QFileInfo(existing).path();
    }
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    if (canonical.isEmpty())
        return QDir::cleanPath(QDir(path).absolutePath());
    return QDir::cleanPath(missing.isEmpty() ? canonical : canonical + QLatin1Char('/') + missing.join(QLatin1Char('/')));
}

} // namespace

LibraryFolder::LibraryFolder(QString root) : m_root(resolvedPath(root))
{
}

bool LibraryFolder::create(QString *error) const
{
    // A folder the user already had keeps its permissions; what is made here is owner-only.
    for (const QString &path : {m_root, originalsPath()}) {
        if (QFileInfo(path).isDir())
            continue;
        if (!QDir().mkpath(path)) {
            *error = QStringLiteral("cannot create the folder %1").arg(path);
            return false;
        }
        if (!QFile::setPermissions(path, kOwnerOnlyDirectory)) {
            *error = QStringLiteral("cannot make %1 private to its owner").arg(path);
            return false;
        }
    }
    return true;
}

QString LibraryFolder::databasePath() const
{
    return m_root + QStringLiteral("/Catalogue.sqlite");
}

QString LibraryFolder::originalsPath() const
{
    return m_root + QStringLiteral("/originals");
}

QString LibraryFolder::changeLockPath() const
{
    return m_root + QStringLiteral("/Changes.lock");
}

bool LibraryFolder::isWritable() const
{
    const auto writable = [](const QString &path) { return ::access(QFile::encodeName(path).constData(), W_OK) == 0; };
    return writable(m_root) && (!QFileInfo::exists(databasePath()) || writable(databasePath()));
}

bool LibraryFolder::holdsOriginals() const
{
    QDirIterator it(originalsPath(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    return it.hasNext();
}

QString LibraryFolder::originalPathFor(const QString &uuid, const QString &suffix)
{
    QString path = QStringLiteral("originals/") + uuid.left(1).toLower() + QLatin1Char('/') + uuid;
    if (!suffix.isEmpty())
        path += QLatin1Char('.') + suffix.toLower();
    return path;
}

QString LibraryFolder::resolve(const QString &relativePath) const
{
    if (relativePath.isEmpty() || QDir::isAbsolutePath(relativePath))
        return {};
    const QString cleaned = QDir::cleanPath(relativePath);
    if (cleaned == QLatin1String("..") || cleaned.startsWith(QLatin1String("../")))
        return {};
    const QString absolute = m_root + QLatin1Char('/') + cleaned;
    // A symbolic link inside the folder must not lead out of it: compare the resolved parent.
    const QString parent = QFileInfo(absolute).absolutePath();
    const QString realRoot = QFileInfo(m_root).canonicalFilePath();
    const QString realParent = QFileInfo(parent).canonicalFilePath();
    if (!realParent.isEmpty() && realParent != realRoot && !realParent.startsWith(realRoot + QLatin1Char('/')))
        return {};
    if (QFileInfo(absolute).isSymLink())
        return {};
    return absolute;
}

bool LibraryFolder::place(const QString &source, const QString &relativeDestination, bool move, QString *error) const
{
    const QString destination = resolve(relativeDestination);
    if (destination.isEmpty()) {
        *error = QStringLiteral("refusing a destination outside the library: %1").arg(relativeDestination);
        return false;
    }
    const QString folder = QFileInfo(destination).absolutePath();
    if (!QDir().mkpath(folder) || !QFile::setPermissions(folder, kOwnerOnlyDirectory)) {
        *error = QStringLiteral("cannot create the folder %1").arg(folder);
        return false;
    }
    int errorNumber = 0;
    if (move && renameNoReplace(source, destination, &errorNumber))
        return true;
    if (move && errorNumber != EXDEV) {
        errno = errorNumber;
        *error = systemError(QStringLiteral("cannot move"), source);
        return false;
    }
    const QString partial = destination + partialSuffix();
    if (!copyDurably(source, partial, error))
        return false;
    if (!renameNoReplace(partial, destination, &errorNumber)) {
        errno = errorNumber;
        *error = systemError(QStringLiteral("cannot place"), destination);
        QFile::remove(partial);
        return false;
    }
    if (move && !QFile::remove(source)) {
        *error = QStringLiteral("copied %1 into the library but cannot remove it").arg(source);
        QFile::remove(destination);
        return false;
    }
    return true;
}

bool LibraryFolder::unplace(const QString &source, const QString &relativeDestination, bool moved, QString *error) const
{
    const QString destination = resolve(relativeDestination);
    if (destination.isEmpty()) {
        *error = QStringLiteral("refusing a path outside the library: %1").arg(relativeDestination);
        return false;
    }
    QFile::remove(destination + partialSuffix());
    if (!QFileInfo::exists(destination))
        return true;
    // A copy, or a move across file systems cut short before it removed its source: the source
    // is whole, so the library's copy goes.
    if (!moved || sameContents(source, destination)) {
        if (QFile::remove(destination))
            return true;
        *error = QStringLiteral("cannot remove %1").arg(destination);
        return false;
    }
    int errorNumber = 0;
    if (renameNoReplace(destination, source, &errorNumber))
        return true;
    if (errorNumber == EXDEV) {
        QString copyError;
        const QString partial = source + partialSuffix();
        if (copyDurably(destination, partial, &copyError) && renameNoReplace(partial, source, &errorNumber))
            return QFile::remove(destination);
        QFile::remove(partial);
    }
    errno = errorNumber;
    *error = systemError(QStringLiteral("cannot return the file to"), source);
    return false;
}

} // namespace photos::detail
