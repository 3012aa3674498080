#include "system_monitor_lib/live/processor/ThrottleCollector.h"

#include "system_monitor_lib/live/processor/CoreLoads.h"
#include "system_monitor_lib/live/processor/CpuCores.h"

#include <QFileInfo>

ThrottleCollector::ThrottleCollector(const MachineRoots &roots)
    : m_roots(roots)
{
}

void ThrottleCollector::look()
{
    const QString path =
        m_roots.sys +
        QStringLiteral("/devices/system/cpu/cpu%1/thermal_throttle/core_throttle_count");
    m_counts.clear();
    // Without it on the first processor there is none at all.
    if (!QFileInfo::exists(path.arg(0)))
        return;
    for (const int processor : firstProcessors(m_roots))
        m_counts.push_back(std::make_unique<Attribute>(path.arg(processor)));
}

bool ThrottleCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    if (m_reading.isDue(nowNs)) {
        m_sum.reset();
        for (const auto &count : m_counts) {
            const std::optional<qint64> number = count->integer();
            if (number && *number >= 0)
                m_sum = m_sum.value_or(0) + *number;
        }
    }
    if (m_sum)
        trees.addDevice(
            Query::AllSensorsData, processorGroup(),
            {{QStringLiteral("Throttled"), reading(static_cast<double>(*m_sum), QString())}});
    return m_sum.has_value();
}
