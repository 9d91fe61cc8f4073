#include "perf/meters/VUTesterFPSMeter.h"

#include "ui/DisplayLink.h"

#include <QCollator>
#include <QDateTime>

#include <algorithm>
#include <vector>

namespace {

// The registry: pointers only, so it keeps no meter alive; a meter leaves it when it goes.
// Created by the first start.
std::vector<VUTesterFPSMeter *> *VUTesterAllFPSMeters = nullptr;

} // namespace

VUTesterFPSMeter::VUTesterFPSMeter() : _timeIntervals(new double[60]()), _numberOfTimeIntervals(60) {}

VUTesterFPSMeter::~VUTesterFPSMeter()
{
    VUTesterFPSMeter::invalidate();
}

void VUTesterFPSMeter::start()
{
    if (!VUTesterAllFPSMeters)
        VUTesterAllFPSMeters = new std::vector<VUTesterFPSMeter *>;
    if (std::find(VUTesterAllFPSMeters->begin(), VUTesterAllFPSMeters->end(), this) == VUTesterAllFPSMeters->end())
        VUTesterAllFPSMeters->push_back(this);
}

void VUTesterFPSMeter::invalidate()
{
    if (VUTesterAllFPSMeters)
        VUTesterAllFPSMeters->erase(std::remove(VUTesterAllFPSMeters->begin(), VUTesterAllFPSMeters->end(), this),
                                    VUTesterAllFPSMeters->end());
}

double VUTesterFPSMeter::fps() const
{
    const qint64 n = _numberOfTimeIntervals;
    const double newest = _timeIntervals[_indexOfCurrentTimeInterval % n];
    const double oldest = _timeIntervals[(_indexOfCurrentTimeInterval + 1) % n];
    return double(n - 1) / (newest - oldest);
}

QList<VUTesterFPSMeter *> VUTesterFPSMeter::allFPSMeters()
{
    if (!VUTesterAllFPSMeters)
        return {};
    QList<VUTesterFPSMeter *> meters(VUTesterAllFPSMeters->begin(), VUTesterAllFPSMeters->end());
    // One fixed locale: labels are names, and the C locale would compare digits one by one.
    QCollator collator(QLocale(QLocale::English));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::stable_sort(meters.begin(), meters.end(), [&](const VUTesterFPSMeter *a, const VUTesterFPSMeter *b) {
        return collator.compare(a->label(), b->label()) < 0;
    });
    return meters;
}

double VUTesterFPSMeter::currentTime()
{
    // Wall-clock seconds at the frame clock's zero, taken once.
    static const double epochOffset = double(QDateTime::currentMSecsSinceEpoch()) / 1000.0 - ui::DisplayLink::currentTime();
    return epochOffset + ui::DisplayLink::currentTime();
}
