#include "system_monitor_lib/live/LiveSource.h"

#include "system_monitor_lib/live/CollectorGuard.h"
#include "system_monitor_lib/live/PlatformCollectors.h"
#include "system_monitor_lib/live/memory/MemoryCollector.h"
#include "system_monitor_lib/live/network/NetworkCollector.h"
#include "system_monitor_lib/live/processor/CpuLoadCollector.h"
#include "system_monitor_lib/live/processor/CpuModel.h"

#include <utility>

namespace {

/// The model follows ": ", where it is looked for. If it were missing, what follows in another
/// group's name would be taken.
QString cpuGroup(const MachineRoots &roots)
{
    const QString model = cpuModel(roots);
    return QStringLiteral("CPU [#0]: ") + (model.isEmpty() ? cpuDescription(roots) : model);
}

} // namespace

LiveSource::LiveSource(const MachineRoots &roots, const MonotonicClock &clock)
    : m_roots(roots)
    , m_clock(clock)
{
}

bool LiveSource::open()
{
    m_collectors.clear();
    const QString processor = cpuGroup(m_roots);
    std::vector<std::unique_ptr<Collector>> collectors;
    collectors.push_back(std::make_unique<CpuLoadCollector>(m_roots, processor));
    collectors.push_back(std::make_unique<MemoryCollector>(m_roots));
    collectors.push_back(std::make_unique<NetworkCollector>(m_roots));
    for (auto &collector : platformCollectors(m_roots, processor, m_clock))
        collectors.push_back(std::move(collector));
    for (auto &collector : collectors)
        m_collectors.push_back(std::make_unique<CollectorGuard>(std::move(collector), m_clock));
    const bool readable = sample(m_clock());
    if (!readable)
        qWarning("No readings of this machine can be read");
    return readable;
}

QJsonObject LiveSource::tree(Query query)
{
    const qint64 now = m_clock();
    if (now < m_sampledNs || now - m_sampledNs > freshness.count())
        sample(now);
    return query == Query::AllSensorsData ? m_trees.allSensors(m_labels) : m_trees.tree(query);
}

bool LiveSource::sample(qint64 nowNs)
{
    SensorTrees trees;
    bool readable = false;
    for (const auto &collector : m_collectors)
        readable = collector->collect(nowNs, trees) || readable;
    m_trees = std::move(trees);
    // Slow devices do not make the sample an old one.
    m_sampledNs = m_clock();
    return readable;
}
