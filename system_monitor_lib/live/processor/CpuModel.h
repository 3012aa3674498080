#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

/// The processor's name: /proc/cpuinfo, else the device tree, on Linux; the registry on Windows.
/// Empty when the system does not report it.
QString cpuModel(const MachineRoots &roots);

/// A description of a processor without a name: its architecture, and its number of cores (threads
/// on Windows) if the system reports it.
QString cpuDescription(const MachineRoots &roots);
