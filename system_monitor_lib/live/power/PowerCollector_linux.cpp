#include "system_monitor_lib/live/power/PowerCollector.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/PolledFile.h"

#include <QDir>

#include <algorithm>

PowerCollector::PowerCollector(const MachineRoots &roots)
    : m_root(roots.sys + QStringLiteral("/class/power_supply"))
{
}

void PowerCollector::read()
{
    m_supplies.clear();
    for (const QString &name :
         QDir(m_root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString folder = QStringLiteral("%1/%2").arg(m_root, name);
        // The uevent file of a mouse would be asked of the mouse itself.
        if (attributeWord(folder + QStringLiteral("/scope")) == QLatin1String("Device"))
            continue;
        PolledFile uevent(folder + QStringLiteral("/uevent"));
        m_supplies.emplace_back(name, parsePowerSupply(uevent.read()));
    }
}

bool PowerCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read();
    const auto isMains = [](const auto &supply) {
        return supply.second.kind == PowerSupply::Kind::Mains;
    };
    for (const auto &[name, supply] : m_supplies) {
        if (supply.kind == PowerSupply::Kind::Battery)
            trees.addGroup({batteryGroup(name), name, {}, batteryLabelNames()},
                           batteryLabels(supply.battery));
    }
    if (std::any_of(m_supplies.begin(), m_supplies.end(), isMains)) {
        const bool isPluggedIn =
            std::any_of(m_supplies.begin(), m_supplies.end(),
                        [](const auto &supply) { return supply.second.isOnline; });
        trees.addDevice(Query::AllSensorsData, mainsGroup(), mainsLabels(isPluggedIn));
    }
    return !m_supplies.empty();
}
