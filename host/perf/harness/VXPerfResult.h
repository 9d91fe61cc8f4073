#pragma once
// What one performance test measured, from the frames it recorded.
//
// A frame's time is the interval from the previous frame's display refresh to its own: one
// refresh interval when the screen kept up, a multiple of it when refreshes were missed. Its work
// is the main thread's time from the refresh until the frame was done, painting included: how
// much of the interval the frame used, which is what tells two environments that both keep up
// apart. A frame is over budget when it came more than half a refresh late, that is when at least
// one refresh went by without a new frame.

#include <QJsonObject>
#include <QString>

#include <vector>

struct VXPerfDistribution {
    double p50 = 0;
    double p90 = 0;
    double p99 = 0;
    double max = 0;

    // Nearest-rank percentiles; all zero for no values.
    static VXPerfDistribution of(std::vector<double> values);
    QJsonObject toJson() const;
};

struct VXPerfResult {
    QString test;
    qint64 frames = 0;
    double fps = 0;         // frames per second over the recorded span
    double refreshRate = 0; // of the display the frames were paced by
    VXPerfDistribution frameTimeMs;
    VXPerfDistribution workMs;
    qint64 framesOverBudget = 0;
    qint64 peakRssBytes = 0;
    qint64 peakWidgets = 0;
    QString note; // what a reader should know about the run, or empty

    // `timestamps` of each frame's refresh and each frame's `work`, both in seconds.
    static VXPerfResult fromFrames(const QString &test, const std::vector<double> &timestamps, const std::vector<double> &work,
                                   double refreshInterval);

    // {"test", "frames", "fps", "refreshRate", "frameTimeMs": {"p50", "p90", "p99", "max"},
    // "framesOverBudget", "peakRssBytes", "workMs": {...}, "peakWidgets"} and "note" when there is one.
    QJsonObject toJson() const;
    // A few lines for a person.
    QString toText() const;
    // The same in short lines, for a narrow alert that names the test itself.
    QString toSummary() const;
};
