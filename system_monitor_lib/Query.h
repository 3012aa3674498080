#pragma once

#include <cstddef>

/// The queries of VqSystemMonitorLib, one per operation that returns a sensor tree.
enum class Query {
    SystemInfo,
    MemoryTimingsInfo,
    CpuInfo,
    CpuDtsInfo,
    CpuEnhancedInfo,
    GpuInfo,
    NetworkInfo,
    SmartInfo,
    PresentMon,
    AllSensorsData,
};

inline constexpr std::size_t queryCount = 10;
