#include "system_monitor_lib/live/network/WirelessLinksCollector.h"

WirelessLinksCollector::WirelessLinksCollector(std::unique_ptr<WirelessLinks> links)
    : m_links(std::move(links))
{
}

bool WirelessLinksCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_known = m_links->read(nowNs);
    for (const WirelessLink &link : m_known) {
        if (!link.adapter.isEmpty())
            addWirelessGroup(trees, link.adapter, wirelessLabels(stateOf(link)));
    }
    return !m_known.empty();
}
