#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// What the CPU tree holds: load, and the means over the cores of clock and voltage.
struct CpuReadings
{
    Reading<unsigned> usage; ///< 0 to 100.
    Reading<int> clock;      ///< At most 100000.
    Reading<double> voltage;
};

/// Reads "Total CPU Utility" or "Total CPU Usage", and per core the clock and the VID. Effective
/// clocks are left out of the mean.
CpuReadings cpuReadings(const QJsonObject &cpuTree);
