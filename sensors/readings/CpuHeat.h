#pragma once

#include "values/Reading.h"

#include <QJsonObject>

/// Temperature and package power of the CPU.
struct CpuHeat
{
    Reading<int> temperature; ///< At most 150.
    Reading<double> power;    ///< 0 to 100000, in the sensor's own units, even when empty.
};

/// The temperature is "CPU Package" of \a dtsTree, or "CPU (Tctl/Tdie)" of \a tctlTree when the
/// former is empty; the power is "CPU Package Power" of \a enhancedTree.
CpuHeat cpuHeat(const QJsonObject &dtsTree, const QJsonObject &tctlTree,
                const QJsonObject &enhancedTree);
