#include "PrivateFolders.h"

#include "PhotosLogging.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace photos {

namespace {

// The start time of a process in clock ticks since boot, which tells a process from a later one
// given the same id; empty when there is no such process.
QByteArray processStartTime(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return {};
    const QByteArray line = stat.readAll();
    // The command name, in parentheses, may hold spaces: count the fields after its end.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return fields.size() > 19 ? fields[19] : QByteArray();
}

QString temporaryParent()
{
    QString application = QCoreApplication::applicationName();
    if (application.isEmpty())
        application = QStringLiteral("photos");
    return QDir(QDir::tempPath()).filePath(QStringLiteral("%1-%2").arg(application).arg(::geteuid()));
}

void removeFoldersOfEndedProcesses(const QString &parent)
{
    static const QRegularExpression name(QStringLiteral("^(\\d+)-(\\d+)$"));
    const QStringList entries = QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    for (const QString &entry : entries) {
        const QRegularExpressionMatch match = name.match(entry);
        if (!match.hasMatch() || processStartTime(match.captured(1).toLongLong()) == match.captured(2).toLatin1())
            continue;
        QString error;
        if (!removeTree(QDir(parent).filePath(entry), &error))
            qCWarning(lcPhotos).noquote() << QStringLiteral("cannot remove the leftovers of an ended process at %1: %2").arg(QDir(parent).filePath(entry), error);
    }
}

// Removes this process's folder when it ends normally.
struct ProcessFolder {
    QString path;
    QString error;
    ~ProcessFolder()
    {
        if (!path.isEmpty())
            removeTree(path, nullptr);
    }
};

} // namespace

bool removeTree(const QString &path, QString *error)
{
    std::error_code code;
    std::filesystem::remove_all(std::filesystem::path(QFile::encodeName(path).toStdString()), code);
    if (code && error)
        *error = QString::fromLocal8Bit(code.message().c_str());
    return !code;
}

bool makePrivateFolder(const QString &path, QString *error)
{
    const QByteArray native = QFile::encodeName(path);
    if (::mkdir(native.constData(), 0700) == 0)
        return true;
    if (errno != EEXIST) {
        *error = QStringLiteral("cannot create %1: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    struct stat status;
    if (::lstat(native.constData(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) {
        *error = QStringLiteral("%1 is not a folder of this user (a link, a file or someone else's); it is left alone").arg(path);
        return false;
    }
    if ((status.st_mode & 0777) != 0700 && ::chmod(native.constData(), 0700) != 0) {
        *error = QStringLiteral("cannot make %1 private: %2").arg(path, QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    return true;
}

QString processTemporaryFolder(QString *error)
{
    static ProcessFolder folder;
    static std::once_flag once;
    std::call_once(once, [] {
        const QString parent = temporaryParent();
        if (!makePrivateFolder(parent, &folder.error))
            return;
        removeFoldersOfEndedProcesses(parent);
        const qint64 pid = ::getpid();
        const QString own = QDir(parent).filePath(QStringLiteral("%1-%2").arg(pid).arg(QString::fromLatin1(processStartTime(pid))));
        if (makePrivateFolder(own, &folder.error))
            folder.path = own;
    });
    if (folder.path.isEmpty() && error)
        *error = folder.error;
    return folder.path;
}

void removeTemporaryFoldersOfEndedProcesses()
{
    const QString parent = temporaryParent();
    struct stat status;
    // Only a folder of ours is looked into: the name is free for anyone to take first.
    if (::lstat(QFile::encodeName(parent).constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid())
        removeFoldersOfEndedProcesses(parent);
}

} // namespace photos
