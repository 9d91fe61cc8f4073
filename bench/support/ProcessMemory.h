#pragma once
// Resident memory of this benchmark process as Linux reports it, in MB.

// Now (VmRSS).
double residentMB();
// The most since the start or the last resetPeakResident() (VmHWM).
double peakResidentMB();
void resetPeakResident();
// Resident memory once the work is over: waits, a few seconds at most, until the pixel-buffer
// pool has given its idle buffers back.
double idleResidentMB();
