#include "system_monitor_lib/live/network/WirelessLinksCollector.h"

#include "system_monitor_lib/ListedNames.h"

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
            trees.addGroup({deviceGroup(QStringLiteral("Network"), link.adapter),
                            link.adapter,
                            {},
                            wirelessLabelNames()},
                           wirelessLabels(stateOf(link)));
    }
    return !m_known.empty();
}
