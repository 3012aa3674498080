#include "system_monitor_lib/live/PlatformCollectors.h"

#include "system_monitor_lib/live/CpuClockCollector.h"
#include "system_monitor_lib/live/CpuTemperatureCollector.h"
#include "system_monitor_lib/live/DriveCollector.h"
#include "system_monitor_lib/live/RaplCollector.h"

std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup)
{
    std::vector<std::unique_ptr<Collector>> collectors;
    collectors.push_back(std::make_unique<CpuClockCollector>(roots, cpuGroup));
    collectors.push_back(std::make_unique<CpuTemperatureCollector>(roots, cpuGroup));
    collectors.push_back(std::make_unique<RaplCollector>(roots, cpuGroup));
    collectors.push_back(std::make_unique<DriveCollector>(roots));
    return collectors;
}
