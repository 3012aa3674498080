#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// The contents of the CPU tree: load, and the mean clock and voltage over the cores.
struct CpuReadings
{
    Reading<unsigned> usage; ///< 0 to 100.
    Reading<int> clock;      ///< At most 100000.
    Reading<double> voltage;
};

/// Reads "Total CPU Utility" or "Total CPU Usage", and per core the clock and the VID. Effective
/// clocks are left out of the mean.
CpuReadings cpuReadings(const QJsonObject &cpuTree);
