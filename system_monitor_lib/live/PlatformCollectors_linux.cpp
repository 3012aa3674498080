#include "system_monitor_lib/live/PlatformCollectors.h"

#include "system_monitor_lib/live/board/BoardCollector.h"
#include "system_monitor_lib/live/drives/DriveCollector.h"
#include "system_monitor_lib/live/graphics/GpuCollector.h"
#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "system_monitor_lib/live/graphics/SysfsGpus.h"
#include "system_monitor_lib/live/network/WirelessCollector.h"
#include "system_monitor_lib/live/power/PowerCollector.h"
#include "system_monitor_lib/live/processor/CpuClockCollector.h"
#include "system_monitor_lib/live/processor/CpuTemperatureCollector.h"
#include "system_monitor_lib/live/processor/RaplCollector.h"
#include "system_monitor_lib/live/processor/ThrottleCollector.h"
#include "system_monitor_lib/live/system/PressureCollector.h"
#include "system_monitor_lib/live/system/SystemStateCollector.h"

namespace {

std::vector<std::unique_ptr<GpuSource>> gpuSources(const MachineRoots &roots)
{
    std::vector<std::unique_ptr<GpuSource>> sources;
    sources.push_back(std::make_unique<SysfsGpus>(roots));
    sources.push_back(std::make_unique<NvidiaGpus>(roots));
    return sources;
}

} // namespace

std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup,
                                                           const MonotonicClock &stopwatch)
{
    std::vector<std::unique_ptr<Collector>> collectors;
    collectors.push_back(std::make_unique<WirelessCollector>(
        roots, roots.wirelessLinks ? wirelessLinks() : nullptr));
    collectors.push_back(std::make_unique<CpuClockCollector>(roots, cpuGroup, stopwatch));
    collectors.push_back(std::make_unique<CpuTemperatureCollector>(roots, cpuGroup));
    collectors.push_back(std::make_unique<RaplCollector>(roots, cpuGroup));
    collectors.push_back(std::make_unique<ThrottleCollector>(roots));
    collectors.push_back(std::make_unique<DriveCollector>(roots));
    collectors.push_back(std::make_unique<GpuCollector>(gpuSources(roots)));
    collectors.push_back(std::make_unique<SystemStateCollector>(roots));
    collectors.push_back(std::make_unique<PressureCollector>(roots));
    collectors.push_back(std::make_unique<PowerCollector>(roots));
    if (roots.boardChips)
        collectors.push_back(std::make_unique<BoardCollector>(roots, stopwatch));
    return collectors;
}
