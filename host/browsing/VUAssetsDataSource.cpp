#include "VUAssetsDataSource.h"

#include <QDebug>

#include <atomic>

namespace {
std::atomic<quint64> g_nextIdentifier{1};
}

VUAssetsDataSource::VUAssetsDataSource()
    : m_identifier(g_nextIdentifier++)
{
}

QDebug operator<<(QDebug debug, const VUIndexPath &path)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << '(';
    for (qsizetype i = 0; i < path.length(); ++i)
        debug << (i ? ", " : "") << path.indexAtPosition(i);
    debug << ')';
    return debug;
}
