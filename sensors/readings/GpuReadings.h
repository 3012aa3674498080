#pragma once

#include <QJsonObject>
#include <QString>

/// The readings of one GPU, held to the ranges that systemInfor names.
struct GpuReadings
{
    int temperature = 0;
    QString temperatureUnits;
    int clock = 0;
    QString clockUnits;
    int load = 0;
    QString loadUnits;
    int memoryClock = 0;
    QString memoryClockUnits;
    double memoryUsage = 0.0;
    QString memoryUsageUnits;
    double memoryAllocated = 0.0;
    QString memoryAllocatedUnits;
    double power = 0.0;
    QString powerUnits;
    double voltage = 0.0;
    QString voltageUnits;
};

/// The name of the GPU with the most memory, the earlier one of equals; "NustIN" when there is
/// none at all.
QString chosenGpu(const QJsonObject &gpuTrees);

/// Reads each metric from \a gpuTree under the first label of its chain, else from the CPU's
/// \a enhancedTree, under which integrated graphics are filed.
GpuReadings gpuReadings(const QJsonObject &gpuTree, const QJsonObject &enhancedTree);
