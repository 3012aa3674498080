#pragma once

#include <QString>

#include <vector>

/// Where a driver tells what. The first file that exists serves its label. "hwmon" stands for the
/// GPU's folder of that kind.
struct SysfsGpuRow
{
    const char *driver;
    const char *label;
    const char *file;
    double divisor;
    const char *units;
    double highest;
    /// Whether it is for the list of all sensors alone: the readers of the GPU query might take it
    /// for another reading.
    bool isForListOnly = false;
};

/// The rows of \a driver in their order; none when its GPUs cannot be read.
std::vector<SysfsGpuRow> sysfsGpuRows(const QString &driver);

/// The maker of a driver's GPUs.
QString vendorOfDriver(const QString &driver);
