#include "system_monitor_lib/live/processor/CpuLoadCollector.h"

#include "system_monitor_lib/live/Rates.h"

CpuLoadCollector::CpuLoadCollector(const MachineRoots &roots, const QString &group)
    : m_reader(roots)
    , m_group(group)
{
}

bool CpuLoadCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    const std::optional<CpuTimes> times = m_reader.read();
    QJsonObject tree;
    if (times) {
        const Sample sample{*times, nowNs};
        tree = labels(sample);
        m_previous = sample;
    } else {
        m_previous.reset();
    }
    trees.add(Query::CpuInfo, tree);
    trees.addDevice(Query::AllSensorsData, m_group, tree);
    return times.has_value();
}

QJsonObject CpuLoadCollector::labels(const Sample &sample) const
{
    if (!m_previous || !isUsableInterval(sample.timeNs - m_previous->timeNs))
        return {};
    const std::optional<double> load = cpuLoadPercent(m_previous->times, sample.times);
    if (!load)
        return {};
    return {{QStringLiteral("Total CPU Usage"), reading(*load, QStringLiteral("%"))}};
}
