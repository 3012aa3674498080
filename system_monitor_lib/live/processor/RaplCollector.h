#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/EnergyCounter.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"

#include <memory>
#include <vector>

/// "CPU Package Power" (W, all packages together) from the processor's energy counters
/// (Documentation/power/powercap in the kernel), for the enhanced query and the processor's group.
/// Current kernels let only root read them. Labels are matched by parts, so the power could be
/// taken for a missing temperature; if there is no temperature, the enhanced query therefore has an
/// empty "CPU Package".
class RaplCollector : public Collector
{
public:
    RaplCollector(const MachineRoots &roots, const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    /// One package.
    struct Zone
    {
        QString directory;
        std::unique_ptr<EnergyCounter> counter;
    };

    void look();

    const MachineRoots m_roots;
    const QString m_group;
    Pace m_listing{listingPeriod};
    std::vector<Zone> m_zones;
};
