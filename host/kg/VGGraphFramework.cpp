#include "VGGraphFramework.h"

#include <QMutex>

static void initGraphResources()
{
    Q_INIT_RESOURCE(vut_graph_framework);
}

namespace VGGraphFramework {
namespace {

QMutex g_mutex;
QString g_path;

} // namespace

QString path()
{
    static const bool registered = (initGraphResources(), true);
    Q_UNUSED(registered);
    QMutexLocker lock(&g_mutex);
    return g_path.isEmpty() ? QStringLiteral(":/VistraGraph.framework") : g_path;
}

void setPath(const QString &path)
{
    QMutexLocker lock(&g_mutex);
    g_path = path;
}

} // namespace VGGraphFramework
