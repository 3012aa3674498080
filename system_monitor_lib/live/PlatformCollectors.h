#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"

#include <memory>
#include <vector>

/// The collectors of hardware sensors in the way of this platform. Windows gives its programs
/// neither the processor's heat and power nor the board's sensors without a driver of their own. \a
/// cpuGroup is the processor's group of sensors; \a stopwatch tells which sensors are slow to read.
std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup,
                                                           const MonotonicClock &stopwatch);
