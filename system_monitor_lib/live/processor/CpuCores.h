#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <vector>

/// The numbers of the first processor of each core that is on line, in order. A machine that does
/// not tell its cores has one processor per core.
std::vector<int> firstProcessors(const MachineRoots &roots);
