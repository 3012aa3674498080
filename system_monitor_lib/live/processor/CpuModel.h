#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

/// The processor's name: /proc/cpuinfo on Linux, the registry on Windows. Empty when the system
/// does not tell.
QString cpuModel(const MachineRoots &roots);
