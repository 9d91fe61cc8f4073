#include "VXProcessMemory.h"

#include <QFile>

qint64 VXPeakResidentBytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    // "VmHWM:    123456 kB"
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine())
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').value(0).toLongLong() * 1024;
    return 0;
}

bool VXResetPeakResidentBytes()
{
    // Writing 5 to clear_refs resets the peak resident size to the current one.
    QFile clearRefs(QStringLiteral("/proc/self/clear_refs"));
    return clearRefs.open(QIODevice::WriteOnly) && clearRefs.write("5") == 1;
}
