#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

/// The processor's name: /proc/cpuinfo, else the device tree, on Linux; the registry on Windows.
/// Empty when the system does not tell.
QString cpuModel(const MachineRoots &roots);

/// What can be said of a processor without a name: its architecture, and how many cores it has
/// (threads on Windows) where the system tells.
QString cpuDescription(const MachineRoots &roots);
