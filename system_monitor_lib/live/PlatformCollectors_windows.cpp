#include "system_monitor_lib/live/PlatformCollectors.h"

#include "system_monitor_lib/live/PacedGroup.h"
#include "system_monitor_lib/live/drives/StorageCollector.h"
#include "system_monitor_lib/live/graphics/AdapterGpus.h"
#include "system_monitor_lib/live/graphics/GpuCollector.h"
#include "system_monitor_lib/live/graphics/ListedNvidiaDevices.h"
#include "system_monitor_lib/live/graphics/NvidiaGpus.h"
#include "system_monitor_lib/live/network/WirelessLinksCollector.h"
#include "system_monitor_lib/live/power/BatteryDevices.h"
#include "system_monitor_lib/live/processor/CoreClockCollector.h"
#include "system_monitor_lib/live/system/SystemStateReader.h"

namespace {

std::vector<std::unique_ptr<GpuSource>> gpuSources(const MachineRoots &roots)
{
    const auto cards = std::make_shared<GraphicsCards>(graphicsSystem());
    const auto power = std::make_shared<DisplayPower>(displayDevices());
    auto nvidia = std::make_unique<NvidiaGpus>(
        roots, std::make_unique<ListedNvidiaDevices>(roots.nvidiaLibrary, power, cards));
    std::vector<std::unique_ptr<GpuSource>> sources;
    sources.push_back(std::make_unique<AdapterGpus>(std::move(nvidia), cards, power));
    return sources;
}

std::unique_ptr<Collector> systemState()
{
    return std::make_unique<PacedGroup>(
        systemStateGroup(),
        [read = systemStateReader()](qint64 /*nowNs*/) { return systemStateLabels(read()); });
}

} // namespace

std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots &roots,
                                                           const QString &cpuGroup,
                                                           const MonotonicClock & /*stopwatch*/)
{
    std::vector<std::unique_ptr<Collector>> collectors;
    collectors.push_back(std::make_unique<CoreClockCollector>(cpuGroup));
    const auto drives = std::make_shared<StorageDrives>(storageSystem());
    collectors.push_back(std::make_unique<StorageCollector>(
        [drives](qint64 nowNs) { return drives->read(nowNs); },
        [drives](const QString &place) { return drives->counters(place); }));
    collectors.push_back(std::make_unique<GpuCollector>(gpuSources(roots)));
    collectors.push_back(systemState());
    collectors.push_back(std::make_unique<WirelessLinksCollector>(wirelessLinks()));
    collectors.push_back(std::make_unique<BatteryDevices>(batterySystem()));
    return collectors;
}
