#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"

#include <memory>
#include <vector>

/// The collectors of hardware sensors that only this platform serves. Windows gives its programs
/// none without a driver of their own. \a cpuGroup is the processor's group of sensors.
std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup);
