#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"

#include <memory>
#include <vector>

/// "Core N Clock" (MHz) of each physical core, for the CPU query and the processor's group: the
/// nominal clock according to Windows' power manager (CallNtPowerInformation), multiplied by the
/// performance counter "% Processor Performance" of all processors; if there is no such counter,
/// the current clock according to the power manager. Processors beyond the first 64 are not
/// reported.
class CoreClockCollector : public Collector
{
public:
    explicit CoreClockCollector(const QString &group);
    ~CoreClockCollector() override;
    Q_DISABLE_COPY(CoreClockCollector)

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    class Performance;

    const QString m_group;
    const std::unique_ptr<Performance> m_performance;
    Pace m_listing{listingPeriod};
    std::vector<quint64> m_cores;
};
