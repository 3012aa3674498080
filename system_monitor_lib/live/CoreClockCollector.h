#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"

#include <vector>

/// "Core N Clock" (MHz) of each physical core as Windows' power manager gives it
/// (CallNtPowerInformation), for the CPU query and the processor's group. Processors beyond the
/// first 64 are not told.
class CoreClockCollector : public Collector
{
public:
    explicit CoreClockCollector(const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    const QString m_group;
    Pace m_listing{listingPeriod};
    std::vector<quint64> m_cores;
};
