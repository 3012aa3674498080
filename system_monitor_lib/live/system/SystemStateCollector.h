#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/system/SystemState.h"

/// The group of systemStateGroup(): uptime and load averages from /proc/uptime and /proc/loadavg,
/// the number of processes from the folders of /proc, that of sessions from systemd's files in
/// /run/systemd/sessions.
class SystemStateCollector : public Collector
{
public:
    /// The kernel's own interval for the load averages.
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(5);
    /// Processes and sessions are counted at this interval, because each costs something.
    static constexpr std::chrono::nanoseconds countingPeriod = std::chrono::seconds(10);

    explicit SystemStateCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void read(qint64 nowNs);

    const MachineRoots m_roots;
    Pace m_reading{readingPeriod};
    Pace m_counting{countingPeriod};
    PolledFile m_uptime;
    PolledFile m_loads;
    SystemState m_state;
    QJsonObject m_labels;
};
