#pragma once

#include <QJsonObject>
#include <QString>

/// What the CPU tree holds: load, and the means over the cores of clock and voltage.
struct CpuReadings
{
    unsigned usage = 0; ///< 0 to 100.
    QString usageUnits;
    int clock = 0; ///< At most 100000.
    QString clockUnits;
    double voltage = 0.0;
    QString voltageUnits;
};

/// Reads "Total CPU Utility" or "Total CPU Usage", and per core the clock and the VID. Effective
/// clocks are left out of the mean.
CpuReadings cpuReadings(const QJsonObject &cpuTree);
