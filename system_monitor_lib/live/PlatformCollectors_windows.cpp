#include "system_monitor_lib/live/PlatformCollectors.h"

std::vector<std::unique_ptr<Collector>> platformCollectors(const MachineRoots & /*roots*/,
                                                           const QString & /*cpuGroup*/)
{
    return {};
}
