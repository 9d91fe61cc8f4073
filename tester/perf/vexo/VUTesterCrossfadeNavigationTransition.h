#pragma once
// The crossfade the baseline environments push and pop with: the host's crossfade, as long as the
// container's own transitions and eased in and out like them, so the two compare like for like.

#include "shell/VUTesterExport.h"

#include <transitions/VUCrossfadeAnimatedTransitioning.h>

class VUTESTER_EXPORT VUTesterCrossfadeNavigationTransition : public VUCrossfadeAnimatedTransitioning {
public:
    VUTesterCrossfadeNavigationTransition();
};
