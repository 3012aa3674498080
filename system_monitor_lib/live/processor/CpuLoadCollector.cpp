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
    const bool wasPaused = m_previous && !isUsableInterval(nowNs - m_previous->timeNs);
    // Read in any case, so that they are ready when the figure is missing.
    const std::optional<double> busy = busyPercent(nowNs);
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
    return m_previous || figure;
}

std::optional<double> CpuLoadCollector::busyPercent(qint64 nowNs)
{
    const std::optional<CpuTimes> times = m_reader.read();
    const std::optional<Sample> previous =
        std::exchange(m_previous, times ? std::optional(Sample{*times, nowNs}) : std::nullopt);
    if (!times || !previous || !isUsableInterval(nowNs - previous->timeNs))
        return std::nullopt;
    return cpuLoadPercent(previous->times, *times);
}

std::optional<double> CpuLoadCollector::figurePercent(qint64 nowNs) const
{
    constexpr double highestLoad = 100;
    const std::optional<double> figure = m_figure ? m_figure(nowNs) : std::nullopt;
    if (!figure || std::isnan(*figure) || *figure < 0)
        return std::nullopt;
    return std::min(*figure, highestLoad);
}
