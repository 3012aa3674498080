#pragma once

#include <QJsonObject>
#include <QString>

/// Temperature and package power of the CPU.
struct CpuHeat
{
    int temperature = 0; ///< At most 150.
    QString temperatureUnits;
    double power = 0.0; ///< 0 to 100000.
    QString powerUnits; ///< The sensor's own, even when empty.
};

/// The temperature is "CPU Package" of \a dtsTree, or "CPU (Tctl/Tdie)" of \a tctlTree when the
/// former is empty; the power is "CPU Package Power" of \a enhancedTree.
CpuHeat cpuHeat(const QJsonObject &dtsTree, const QJsonObject &tctlTree,
                const QJsonObject &enhancedTree);
