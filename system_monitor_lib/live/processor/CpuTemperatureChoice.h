#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <QStringList>

/// The sensors that measure the temperature of the processor.
struct CpuTemperatureChoice
{
    /// Paths of temperatures in thousandths of a degree; the hottest one counts.
    QStringList inputs;
    /// Whether it is the one that its maker calls Tctl or Tdie.
    bool isTctlOrTdie = false;
};

/// Chooses by driver, then by label: the package of coretemp, or its cores if it has no package;
/// Tdie or else Tctl of k10temp and zenpower, or the only sensor of an older k10temp. Then the
/// thermal zones: of the package, of the processor, of its groups of cores, of the system on chip;
/// last the firmware's. Empty when there is none of them.
CpuTemperatureChoice chooseCpuTemperature(const MachineRoots &roots);
