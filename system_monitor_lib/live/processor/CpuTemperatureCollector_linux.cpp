#include "system_monitor_lib/live/processor/CpuTemperatureCollector.h"

#include <algorithm>

CpuTemperatureCollector::CpuTemperatureCollector(const MachineRoots &roots, const QString &group)
    : m_roots(roots)
    , m_group(group)
{
}

void CpuTemperatureCollector::look()
{
    CpuTemperatureChoice choice = chooseCpuTemperature(m_roots);
    if (choice.inputs == m_choice.inputs)
        return;
    m_choice = std::move(choice);
    m_temperatures.clear();
    for (const QString &input : m_choice.inputs)
        m_temperatures.push_back(std::make_unique<Attribute>(input));
}

std::optional<double> CpuTemperatureCollector::hottest() const
{
    std::optional<double> hottest;
    for (const auto &temperature : m_temperatures) {
        if (const std::optional<double> celsius = temperature->celsius())
            hottest = std::max(hottest.value_or(0), *celsius);
    }
    return hottest;
}

bool CpuTemperatureCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    const std::optional<double> celsius = hottest();
    if (!celsius)
        return false;
    const QJsonArray degrees = reading(*celsius, QStringLiteral("°C"));
    const QJsonObject package{{QStringLiteral("CPU Package"), degrees}};
    trees.add(Query::CpuDtsInfo, package);
    trees.add(Query::CpuEnhancedInfo, package);
    if (m_choice.isTctlOrTdie)
        trees.add(Query::CpuEnhancedInfo, {{QStringLiteral("CPU (Tctl/Tdie)"), degrees}});
    trees.addDevice(Query::AllSensorsData, m_group, package);
    return true;
}
