#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/processor/CpuTemperatureChoice.h"

#include <memory>
#include <vector>

/// "CPU Package" (°C) of the processor's own sensor, for the temperature query, the enhanced query
/// and the processor's group. If its maker calls it Tctl or Tdie, it also has the label "CPU
/// (Tctl/Tdie)" in the enhanced query.
class CpuTemperatureCollector : public Collector
{
public:
    CpuTemperatureCollector(const MachineRoots &roots, const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void look();
    /// Nothing when no sensor reports a temperature.
    [[nodiscard]] std::optional<double> hottest() const;

    const MachineRoots m_roots;
    const QString m_group;
    Pace m_listing{listingPeriod};
    CpuTemperatureChoice m_choice;
    std::vector<std::unique_ptr<Attribute>> m_temperatures;
};
