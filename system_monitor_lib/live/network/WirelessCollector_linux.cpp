#include "system_monitor_lib/live/network/WirelessCollector.h"

#include "system_monitor_lib/ListedNames.h"

WirelessCollector::WirelessCollector(const MachineRoots &roots)
    : m_file(roots.proc + QStringLiteral("/net/wireless"))
{
}

bool WirelessCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs)) {
        m_adapters.clear();
        for (const auto &[name, state] : parseWireless(m_file.read()))
            m_adapters.emplace_back(name, wirelessLabels(state));
    }
    for (const auto &[name, labels] : m_adapters)
        trees.addGroup(
            {deviceGroup(QStringLiteral("Network"), name), name, {}, wirelessLabelNames()}, labels);
    return !m_adapters.empty();
}
