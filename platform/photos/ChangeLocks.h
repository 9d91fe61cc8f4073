#pragma once
// Who owns the changes in flight. Every change holds a lock on one byte of the library's lock file,
// at an offset that is its owner token, from before its journal entries are written until they
// are gone. The system drops the lock when its process ends, however it ends, so a journal entry
// whose token nobody holds belongs to a change that died, and only those are reconciled. The locks
// belong to one opening of the file (open file description locks): two libraries of one process
// see each other's changes as they would another process's.

#include <QMutex>
#include <QString>

namespace photos::detail {

class ChangeLocks {
public:
    explicit ChangeLocks(QString path);
    ~ChangeLocks();
    ChangeLocks(const ChangeLocks &) = delete;
    ChangeLocks &operator=(const ChangeLocks &) = delete;

    // A fresh token, locked for this opening; 0 with a reason when the lock file is unusable.
    qint64 claim(QString *error);
    void release(qint64 token);
    // Whether another opening of the lock file holds the token (0 stands for no owner).
    bool isHeld(qint64 token);

private:
    // fcntl() on the token's byte; `type` is the lock type asked for, and for a query the type
    // found.
    bool _lock(int command, short *type, qint64 token);

    QString m_path;
    QMutex m_mutex;
    int m_fd = -1;
};

// Holds a claimed token for one change.
class ChangeOwnership {
public:
    explicit ChangeOwnership(ChangeLocks &locks, QString *error) : m_locks(locks), m_token(locks.claim(error)) {}
    ~ChangeOwnership()
    {
        if (m_token)
            m_locks.release(m_token);
    }
    ChangeOwnership(const ChangeOwnership &) = delete;
    ChangeOwnership &operator=(const ChangeOwnership &) = delete;
    qint64 token() const { return m_token; }

private:
    ChangeLocks &m_locks;
    qint64 m_token;
};

} // namespace photos::detail
