#pragma once
// The process's resident memory, from the kernel's own accounting (/proc/self).

#include <QtGlobal>

// The most the process has had resident since it started or since the last reset; 0 where the
// kernel does not say.
qint64 VXPeakResidentBytes();
// Starts the peak afresh from what is resident now; false where the kernel does not allow it.
bool VXResetPeakResidentBytes();
