#include "system_monitor_lib/live/processor/CpuLoadCollector.h"

#include "system_monitor_lib/live/Rates.h"

#include <algorithm>
#include <cmath>
#include <utility>

CpuLoadCollector::CpuLoadCollector(const MachineRoots &roots, const QString &group,
                                   CpuLoadFigure figure)
    : m_reader(roots)
    , m_figure(std::move(figure))
    , m_group(group)
{
}

bool CpuLoadCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    const bool wasPaused = m_current && !isUsableInterval(nowNs - m_current->timeNs);
    // Read in any case, so that they are ready when the figure is missing.
    const std::unique_ptr<Sample> previous = advance(nowNs);
    const std::optional<double> busy =
        previous ? cpuLoadPercent(previous->times, m_current->times) : std::nullopt;
    std::optional<double> figure = figurePercent(nowNs);
    // It is a mean as well.
    if (wasPaused)
        figure.reset();
    const std::optional<double> load = figure ? figure : busy;
    QJsonObject tree;
    if (load)
        tree.insert(QStringLiteral("Total CPU Usage"), reading(*load, QStringLiteral("%")));
    trees.add(Query::CpuInfo, tree);
    trees.addDevice(Query::AllSensorsData, m_group, tree);
    if (previous)
        addDetails(previous->details, m_current->details, trees);
    return m_current || figure;
}

std::unique_ptr<CpuLoadCollector::Sample> CpuLoadCollector::advance(qint64 nowNs)
{
    const std::optional<CpuTimes> times = m_reader.read();
    std::unique_ptr<Sample> previous = std::move(m_current);
    if (times)
        m_current = std::make_unique<Sample>(Sample{*times, m_reader.details(), nowNs});
    const bool isUsable = m_current && previous && isUsableInterval(nowNs - previous->timeNs);
    return isUsable ? std::move(previous) : nullptr;
}

void CpuLoadCollector::addDetails(const CpuDetails &previous, const CpuDetails &current,
                                  SensorTrees &trees)
{
    const QJsonObject loads = coreLoadLabels(previous.cores, current.cores);
    const QJsonObject shares = previous.modes && current.modes
                                   ? cpuModeLabels(*previous.modes, *current.modes)
                                   : QJsonObject();
    if (!loads.isEmpty())
        trees.addDevice(Query::AllSensorsData, processorGroup(), loads);
    if (!shares.isEmpty())
        trees.addDevice(Query::AllSensorsData, processorGroup(), shares);
}

std::optional<double> CpuLoadCollector::figurePercent(qint64 nowNs) const
{
    constexpr double highestLoad = 100;
    const std::optional<double> figure = m_figure ? m_figure(nowNs) : std::nullopt;
    if (!figure || std::isnan(*figure) || *figure < 0)
        return std::nullopt;
    return std::min(*figure, highestLoad);
}
