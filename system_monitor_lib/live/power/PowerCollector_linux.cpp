#include "system_monitor_lib/live/power/PowerCollector.h"

#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/PolledFile.h"

PowerCollector::PowerCollector(const MachineRoots &roots)
    : m_root(roots.sys + QStringLiteral("/class/power_supply"))
{
}

void PowerCollector::read()
{
    std::optional<bool> isPluggedIn;
    m_batteries.clear();
    for (const QString &name : folderNames(m_root)) {
        const QString folder = QStringLiteral("%1/%2").arg(m_root, name);
        // The uevent file of a mouse would be asked of the mouse itself.
        if (attributeWord(folder + QStringLiteral("/scope")) == QLatin1String("Device"))
            continue;
        PolledFile uevent(folder + QStringLiteral("/uevent"));
        const PowerSupply supply = parsePowerSupply(uevent.read());
        if (supply.kind == PowerSupply::Kind::Battery)
            m_batteries.emplace_back(name, batteryLabels(supply.battery));
        else if (supply.kind == PowerSupply::Kind::Mains)
            isPluggedIn = isPluggedIn.value_or(false) || supply.isOnline;
    }
    m_mains = isPluggedIn ? mainsLabels(*isPluggedIn) : QJsonObject();
}

bool PowerCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        read();
    for (const auto &[name, labels] : m_batteries)
        trees.addGroup({batteryGroup(name), name, {}, batteryLabelNames()}, labels);
    if (!m_mains.isEmpty())
        trees.addDevice(Query::AllSensorsData, mainsGroup(), m_mains);
    return !m_batteries.empty() || !m_mains.isEmpty();
}
