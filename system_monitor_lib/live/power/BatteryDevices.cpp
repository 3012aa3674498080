#include "system_monitor_lib/live/power/BatteryDevices.h"

#include "system_monitor_lib/live/DistinctName.h"

BatteryDevices::BatteryDevices(std::unique_ptr<BatterySystem> system)
    : m_system(std::move(system))
{
}

void BatteryDevices::read()
{
    m_batteries.clear();
    for (const BatteryAnswers &answers : m_system->batteries()) {
        const QString name = parseBatteryName(answers);
        m_batteries.push_back({name.isEmpty() ? QStringLiteral("Battery") : name,
                               QStringLiteral("#%1").arg(m_batteries.size()),
                               batteryLabels(parseBattery(answers))});
    }
    m_isPluggedIn = parseMains(m_system->powerStatus());
}

bool BatteryDevices::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read();
    for (const Battery &battery : m_batteries)
        trees.addGroup({batteryGroup(distinctName(battery, m_batteries, &Battery::name)),
                        battery.name, battery.place, batteryLabelNames()},
                       battery.labels);
    if (m_isPluggedIn)
        trees.addDevice(Query::AllSensorsData, mainsGroup(), mainsLabels(*m_isPluggedIn));
    return !m_batteries.empty() || m_isPluggedIn;
}
