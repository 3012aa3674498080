#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"

#include <memory>
#include <vector>

/// "Core N Clock" (MHz) of each physical core, for the CPU query and the processor's group: what
/// Windows' power manager calls its nominal clock (CallNtPowerInformation), times the performance
/// counter "% Processor Performance" of all processors; where there is no such counter, what the
/// power manager calls the present clock. Processors beyond the first 64 are not told.
class CoreClockCollector : public Collector
{
public:
    explicit CoreClockCollector(const QString &group);
    ~CoreClockCollector() override;

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    class Performance;

    const QString m_group;
    const std::unique_ptr<Performance> m_performance;
    Pace m_listing{listingPeriod};
    std::vector<quint64> m_cores;
};
