#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/network/WirelessLinks.h"
#include "system_monitor_lib/live/network/WirelessText.h"

#include <map>

/// The wireless adapters of Linux in the groups "Network: ADAPTER": their links, and the signals of
/// those whose drivers are so old that they tell only these.
class WirelessCollector : public Collector
{
public:
    /// The adapters are asked at this interval, because some answer slowly.
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(5);

    /// Without \a links there are the signals alone.
    explicit WirelessCollector(const MachineRoots &roots,
                               std::unique_ptr<WirelessLinks> links = {});

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void read(qint64 nowNs);

    const std::unique_ptr<WirelessLinks> m_links;
    Pace m_reading{readingPeriod};
    PolledFile m_file;
    /// Their labels by name.
    std::map<QString, QJsonObject> m_adapters;
};
