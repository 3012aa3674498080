#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/network/WirelessLinks.h"

/// The labels of WirelessState of each of \a links, for the groups "Network: ADAPTER" of the list
/// of all sensors. A service is asked for them, which asks drivers: every five seconds.
class WirelessLinksCollector : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(5);

    explicit WirelessLinksCollector(std::unique_ptr<WirelessLinks> links);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    const std::unique_ptr<WirelessLinks> m_links;
    Pace m_reading{readingPeriod};
    std::vector<WirelessLink> m_known;
};
