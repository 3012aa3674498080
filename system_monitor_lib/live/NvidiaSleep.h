#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

/// Whether every NVIDIA GPU of the machine is there and sleeps; false when there is none or the
/// system does not tell.
bool allNvidiaGpusSleep(const MachineRoots &roots);
