#include "VUAssetsDataSource.h"

#include <atomic>

namespace {
std::atomic<quint64> g_nextIdentifier{1};
}

VUAssetsDataSource::VUAssetsDataSource()
    : m_identifier(g_nextIdentifier++)
{
}
