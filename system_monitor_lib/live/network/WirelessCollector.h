#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/network/WirelessText.h"

/// The signals of the wireless adapters that have a link, in the groups "Network: ADAPTER".
class WirelessCollector : public Collector
{
public:
    /// The adapters are asked at this interval, because some answer slowly.
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(5);

    explicit WirelessCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    Pace m_reading{readingPeriod};
    PolledFile m_file;
    /// Their labels by name.
    std::vector<std::pair<QString, QJsonObject>> m_adapters;
};
