#include "VXSettings.h"

namespace {
int g_indexingDepth = 0;
}

bool VXSettingsIsIndexing()
{
    return g_indexingDepth > 0;
}

VXSettingsIndexingScope::VXSettingsIndexingScope()
{
    ++g_indexingDepth;
}

VXSettingsIndexingScope::~VXSettingsIndexingScope()
{
    --g_indexingDepth;
}
