#pragma once
// What the kernel says about this test process: its threads and its resident memory.

#include <QDir>
#include <QFile>

#include <unistd.h>

// Threads of the process now, as /proc/self/task lists them.
inline int processThreadCount()
{
    return int(QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

// Resident memory in bytes, from /proc/self/statm.
inline qint64 processResidentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields[1].toLongLong() * sysconf(_SC_PAGESIZE) : -1;
}
