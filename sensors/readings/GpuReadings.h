#pragma once

#include "values/Reading.h"

#include <QJsonObject>
#include <QString>

/// The readings of one GPU, held to the ranges that systemInfor names.
struct GpuReadings
{
    Reading<int> temperature;
    Reading<int> clock;
    Reading<int> load;
    Reading<int> memoryClock;
    Reading<double> memoryUsage;
    Reading<double> memoryAllocated;
    Reading<double> power;
    Reading<double> voltage;
};

/// The name of the GPU with the most memory, the earlier one of equals; "NustIN" when there is
/// none at all.
QString chosenGpu(const QJsonObject &gpuTrees);

/// Reads each metric from \a gpuTree under the first label of its chain, else from the CPU's
/// \a enhancedTree, under which integrated graphics are filed.
GpuReadings gpuReadings(const QJsonObject &gpuTree, const QJsonObject &enhancedTree);
