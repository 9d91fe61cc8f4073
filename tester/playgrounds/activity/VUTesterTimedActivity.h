#pragma once
// Work of a chosen length for the Activity Controller playground: equal steps on a background
// queue, each reported to the activity on the main thread, failing at the first step that
// reaches the failure point when asked to. A cancel wakes the work at once and it stops.

#include "shell/VUTesterExport.h"

class VUActivity;

struct VUTesterTimedActivityOptions {
    double duration = 5;
    int numberOfSteps = 10;
    bool determinate = true;
    bool fails = false;
    double failurePoint = 0.5;
};

// Starts the work for `activity` and returns at once.
VUTESTER_EXPORT void VUTesterRunTimedActivity(VUActivity *activity, const VUTesterTimedActivityOptions &options);
