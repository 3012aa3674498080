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

void ThrottleCollector::read()
{
    std::optional<double> sum;
    for (const auto &count : m_counts) {
        const std::optional<qint64> number = count->integer();
        if (number && *number >= 0)
            sum = sum.value_or(0) + static_cast<double>(*number);
    }
    m_labels = {};
    addReading(m_labels, QStringLiteral("Throttled"), sum, QString());
}

bool ThrottleCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    if (m_reading.isDue(nowNs))
        read();
    if (!m_labels.isEmpty())
        trees.addDevice(Query::AllSensorsData, processorGroup(), m_labels);
    return !m_labels.isEmpty();
}
