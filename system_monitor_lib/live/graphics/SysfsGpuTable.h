#pragma once

#include <QString>

#include <vector>

/// Which file of a driver has which reading. The first file that exists is used for its label.
/// "hwmon" stands for the GPU's hwmon folder.
struct SysfsGpuRow
{
    const char *driver;
    const char *label;
    const char *file;
    double divisor;
    const char *units;
    double highest;
    /// Whether it is only for the list of all sensors, because in the GPU query its label could be
    /// mistaken for another reading.
    bool isForListOnly = false;
};

/// The rows of \a driver in their order; none when its GPUs cannot be read.
std::vector<SysfsGpuRow> sysfsGpuRows(const QString &driver);

/// The maker of a driver's GPUs.
QString vendorOfDriver(const QString &driver);
