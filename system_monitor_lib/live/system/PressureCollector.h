#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/PolledFile.h"

/// "Processor Pressure", "Memory Pressure" and "Disk Pressure" (%) in the group "Pressure": the
/// share of the last ten seconds during which some program had to wait for it (/proc/pressure).
class PressureCollector : public Collector
{
public:
    /// The kernel's own interval for these means.
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(2);

    explicit PressureCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void read();

    Pace m_reading{readingPeriod};
    QJsonObject m_labels;
    PolledFile m_processor;
    PolledFile m_memory;
    PolledFile m_disk;
};
