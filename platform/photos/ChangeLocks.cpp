#include "ChangeLocks.h"

#include <QFile>
#include <QMutexLocker>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace photos::detail {

ChangeLocks::ChangeLocks(QString path) : m_path(std::move(path))
{
}

ChangeLocks::~ChangeLocks()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool ChangeLocks::_lock(int command, short *type, qint64 token)
{
    if (m_fd < 0) {
        m_fd = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (m_fd < 0)
            return false;
    }
    struct flock lock = {};
    lock.l_type = *type;
    lock.l_whence = SEEK_SET;
    lock.l_start = off_t(token);
    lock.l_len = 1;
    if (::fcntl(m_fd, command, &lock) != 0)
        return false;
    *type = lock.l_type;
    return true;
}

qint64 ChangeLocks::claim(QString *error)
{
    QMutexLocker locker(&m_mutex);
    // Tokens are drawn below 2^62: far apart, positive, and within any file offset.
    for (int attempt = 0; attempt < 4; ++attempt) {
        const qint64 token = qint64(QRandomGenerator::system()->generate64() >> 2) | 1;
        short type = F_WRLCK;
        if (_lock(F_OFD_SETLK, &type, token))
            return token;
        if (errno != EAGAIN && errno != EACCES)
            break;
    }
    *error = QStringLiteral("cannot lock %1: %2").arg(m_path, QString::fromLocal8Bit(std::strerror(errno)));
    return 0;
}

void ChangeLocks::release(qint64 token)
{
    QMutexLocker locker(&m_mutex);
    short type = F_UNLCK;
    _lock(F_OFD_SETLK, &type, token);
}

bool ChangeLocks::isHeld(qint64 token)
{
    if (token == 0)
        return false;
    QMutexLocker locker(&m_mutex);
    // When the lock file cannot be read, assume the owner lives: leaving a journal entry for a
    // later opening loses nothing, undoing a live change would.
    short type = F_WRLCK;
    if (!_lock(F_OFD_GETLK, &type, token))
        return true;
    return type != F_UNLCK;
}

} // namespace photos::detail
