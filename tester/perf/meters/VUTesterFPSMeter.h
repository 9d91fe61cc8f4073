#pragma once
// A frame-rate meter: the rate of some event (a frame drawn, a callback fired) from the time
// stamps of its last 60 events. Its owner calls sample() once per event and reads fps() when it
// likes. Started meters are listed, by label, by allFPSMeters(); a meter that goes away drops out
// of that list by itself.
//
// The rate is 59 divided by the time the last 60 samples span. Until 60 samples have come in the
// oldest slot still holds 0, so the rate is close to 0 (59 over the whole time since the clock's
// epoch), and with no sample at all it is 59 / 0, positive infinity: a meter shows nothing
// plausible until it has a full window, and a partial average would hide that.
//
// Main thread only: the registry is a plain global.

#include "shell/VUTesterExport.h"

#include <QList>
#include <QString>

#include <memory>

class VUTESTER_EXPORT VUTesterFPSMeter {
public:
    VUTesterFPSMeter();
    virtual ~VUTesterFPSMeter();
    VUTesterFPSMeter(const VUTesterFPSMeter &) = delete;
    VUTesterFPSMeter &operator=(const VUTesterFPSMeter &) = delete;

    // Enters the meter in the registry; samples and the ring are left as they are.
    virtual void start();
    // Takes it out again (harmless when it is not in); it may be started again.
    virtual void invalidate();

    // One event now: the count goes up first, then the time goes into the slot count mod 60, so
    // the first sample lands in slot 1 and slot 0 is first written by the 60th.
    void sample()
    {
        ++_indexOfCurrentTimeInterval;
        _timeIntervals[_indexOfCurrentTimeInterval % _numberOfTimeIntervals] = currentTime();
    }
    // 59 over the span from the oldest of the last 60 samples to the newest; constant time.
    double fps() const;

    QString label() const { return m_label; }
    void setLabel(const QString &label) { m_label = label; }

    // Every started meter, by label: case ignored, runs of digits compared as numbers.
    static QList<VUTesterFPSMeter *> allFPSMeters();

    // The meters' clock: seconds since 1970 (UTC), advancing with the display's frame clock, so
    // stepped frames (DisplayLink::ManualStepping) are timed as the frames they stand for.
    static double currentTime();

private:
    std::unique_ptr<double[]> _timeIntervals;
    qint64 _numberOfTimeIntervals;
    qint64 _indexOfCurrentTimeInterval = 0;
    QString m_label;
};
