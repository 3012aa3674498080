#pragma once

#include "system_monitor_lib/live/PerformanceCounter.h"
#include "system_monitor_lib/live/graphics/GraphicsDetails.h"

#include <QHash>

/// What the performance counters of Windows say about one adapter.
struct GpuUsage
{
    /// The load of its busiest engine (0 to 100 %).
    std::optional<double> loadPercent;
    /// How much of its own memory is in use.
    std::optional<quint64> memoryBytes;
    /// The loads of its engines by kind, of several of a kind the highest. A kind that no process
    /// uses is absent, like the link.
    GraphicsDetails engines;
};

/// Sorts the instances of "GPU Engine(*)\Utilization Percentage" and "GPU Adapter
/// Memory(*)\Dedicated Usage" by adapter: the number (LUID) in their names. Such names are
/// "pid_42_luid_0x00000000_0x0000D3A4_phys_0_eng_3_engtype_3D" and
/// "luid_0x00000000_0x0000D3A4_phys_0". The load of an engine is the sum over its processes. An
/// adapter that no process uses has no engines, but has memory: its load is 0.
QHash<quint64, GpuUsage> gpuUsage(const std::vector<CounterValue> &engines,
                                  const std::vector<CounterValue> &memory);
