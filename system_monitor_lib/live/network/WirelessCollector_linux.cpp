#include "system_monitor_lib/live/network/WirelessCollector.h"

WirelessCollector::WirelessCollector(const MachineRoots &roots,
                                     std::unique_ptr<WirelessLinks> links)
    : m_links(std::move(links))
    , m_file(roots.proc + QStringLiteral("/net/wireless"))
{
}

bool WirelessCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read(nowNs);
    for (const auto &[name, labels] : m_adapters)
        addWirelessGroup(trees, name, labels);
    return !m_adapters.empty();
}

void WirelessCollector::read(qint64 nowNs)
{
    m_adapters.clear();
    if (m_links) {
        for (const WirelessLink &link : m_links->read(nowNs))
            m_adapters.emplace(link.adapter, wirelessLabels(stateOf(link)));
    }
    for (const auto &[name, state] : parseWireless(m_file.read()))
        m_adapters.emplace(name, wirelessLabels(state));
}
