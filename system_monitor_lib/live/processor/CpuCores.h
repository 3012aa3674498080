#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <vector>

/// The numbers of the first processor of each online core, in order. If the machine does not report
/// its cores, each processor is a core.
std::vector<int> firstProcessors(const MachineRoots &roots);
