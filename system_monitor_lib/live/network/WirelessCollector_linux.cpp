#include "system_monitor_lib/live/network/WirelessCollector.h"

WirelessCollector::WirelessCollector(const MachineRoots &roots)
    : m_file(roots.proc + QStringLiteral("/net/wireless"))
{
}

bool WirelessCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_adapters = parseWireless(m_file.read());
    for (const auto &[name, state] : m_adapters)
        trees.addGroup({QStringLiteral("Network: %1").arg(name), name, {}, wirelessLabelNames()},
                       wirelessLabels(state));
    return !m_adapters.empty();
}
