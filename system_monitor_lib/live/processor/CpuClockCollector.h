#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"

#include <memory>
#include <vector>

/// "Core N Clock" (MHz) of each physical core, counted from 0 without gaps, for the CPU query and
/// the processor's group: from cpufreq/scaling_cur_freq, or, if no core has that, from
/// /proc/cpuinfo, rarely where the clocks in it cannot change.
class CpuClockCollector : public Collector
{
public:
    /// Reading a core's clock counts as slow if it takes longer than this.
    static constexpr std::chrono::nanoseconds slow = std::chrono::milliseconds(1);
    /// Some drivers take up to 20 ms per core. With a slow driver only the first core is read, and
    /// rarely.
    static constexpr std::chrono::nanoseconds slowPeriod = std::chrono::seconds(10);

    CpuClockCollector(const MachineRoots &roots, const QString &group,
                      const MonotonicClock &stopwatch = monotonicNanoseconds);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    /// The first processor of a physical core.
    struct Core
    {
        int processor = 0;
        std::unique_ptr<Attribute> clock;
    };

    /// Finds the cores again when processors went online or offline.
    void look();
    QJsonObject frequencies();
    QJsonObject cpuInfoClocks();

    const MachineRoots m_roots;
    const QString m_group;
    const MonotonicClock m_stopwatch;
    Pace m_listing{listingPeriod};
    Pace m_reading{std::chrono::nanoseconds(0)};
    PolledFile m_cpuInfo;
    std::vector<Core> m_cores;
    /// Whether the first core has its own clock; assumed after each look().
    bool m_hasFrequencies = true;
    QJsonObject m_clocks;
};
