#pragma once

#include "system_monitor_lib/live/processor/CoreLoads.h"
#include "system_monitor_lib/live/processor/CpuTimes.h"

#include <optional>
#include <string_view>

/// Parses /proc/stat, whose first line sums up all processors (proc(5)): user, nice, system, idle,
/// and from later kernels on iowait, irq, softirq, steal, guest, guest_nice. Waiting for a disk
/// counts as idle; guest time is part of user time already. Nothing when the line is malformed.
std::optional<CpuTimes> parseProcStat(std::string_view text);

/// Parses the same file in detail: interrupts count as system time, processes with a low priority
/// as user time. Processors whose lines, "cpuN", are malformed are left out.
CpuDetails parseProcStatDetails(std::string_view text);
