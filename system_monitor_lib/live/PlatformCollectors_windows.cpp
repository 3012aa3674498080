#include "system_monitor_lib/live/PlatformCollectors.h"

#include "system_monitor_lib/live/drives/StorageCollector.h"
#include "system_monitor_lib/live/graphics/GpuCollector.h"
#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "system_monitor_lib/live/processor/CoreClockCollector.h"

std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup,
                                                           const MonotonicClock & /*stopwatch*/)
{
    std::vector<std::unique_ptr<GpuSource>> gpus;
    gpus.push_back(std::make_unique<NvidiaGpus>(roots));
    std::vector<std::unique_ptr<Collector>> collectors;
    collectors.push_back(std::make_unique<CoreClockCollector>(cpuGroup));
    collectors.push_back(std::make_unique<StorageCollector>(storageDrives));
    collectors.push_back(std::make_unique<GpuCollector>(std::move(gpus)));
    return collectors;
}
