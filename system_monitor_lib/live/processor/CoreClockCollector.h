#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/PerformanceCounter.h"
#include "system_monitor_lib/live/processor/CoreClocks.h"

/// "Core N Clock" (MHz) of each physical core, for the CPU query and the processor's group: the
/// nominal clock according to Windows' power manager (CallNtPowerInformation), multiplied by the
/// performance counter "% Processor Performance" of all processors; if there is no such counter,
/// the current clock according to the power manager. It knows only the first group of processors:
/// where there are more than 64, the nominal clocks come from the registry.
class CoreClockCollector : public Collector
{
public:
    explicit CoreClockCollector(const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void look();
    [[nodiscard]] std::vector<std::vector<unsigned>>
    processorClocks(std::optional<double> performance) const;

    const QString m_group;
    PerformanceCounter m_performance;
    Pace m_listing{listingPeriod};
    std::vector<CoreMask> m_cores;
    /// The nominal clocks by group; empty where there is only one group.
    std::vector<std::vector<unsigned>> m_nominal;
};
