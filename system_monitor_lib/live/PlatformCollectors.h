#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"

#include <memory>
#include <vector>

/// The hardware-sensor collectors of this platform. Windows gives programs neither the processor's
/// temperature and power nor the board's sensors without a special driver. \a cpuGroup is the
/// processor's group of sensors; \a stopwatch is used to find sensors that are slow to read.
std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup,
                                                           const MonotonicClock &stopwatch);
