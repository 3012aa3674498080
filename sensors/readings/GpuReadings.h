#pragma once

#include "values/Reading.h"

#include <QJsonObject>
#include <QString>

/// The readings of one GPU, limited to the ranges given in systemInfor.
struct GpuReadings
{
    Reading<int> temperature;
    Reading<int> clock;
    Reading<int> load;
    Reading<int> memoryClock;
    Reading<double> memoryUsage;
    Reading<double> memoryAllocated;
    double memorySize = 0; ///< MB, as chosenGpu compares it; 0 when it is unknown.
    Reading<double> power;
    Reading<double> voltage;
};

/// The name of the GPU with the most memory, the first one among equals; "NustIN" when there is
/// none.
QString chosenGpu(const QJsonObject &gpuTrees);

/// Reads each metric from \a gpuTree under the first existing label of its list, else from the
/// CPU's \a enhancedTree, which contains integrated graphics.
GpuReadings gpuReadings(const QJsonObject &gpuTree, const QJsonObject &enhancedTree);
