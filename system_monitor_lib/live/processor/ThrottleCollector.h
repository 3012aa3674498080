#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"

#include <memory>
#include <vector>

/// "Throttled": how often the cores together have been slowed down because they were too hot, since
/// the machine started; in the group of processorGroup(). Intel's processors count it
/// (thermal_throttle/core_throttle_count of each processor).
class ThrottleCollector : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(10);
    /// It takes several files of each processor to find the cores.
    static constexpr std::chrono::nanoseconds coresPeriod = std::chrono::minutes(10);

    explicit ThrottleCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void look();
    void read();

    const MachineRoots m_roots;
    Pace m_listing{coresPeriod};
    Pace m_reading{readingPeriod};
    std::vector<std::unique_ptr<Attribute>> m_counts;
    QJsonObject m_labels;
};
