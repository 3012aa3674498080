#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/processor/CpuLoadFigure.h"
#include "system_monitor_lib/live/processor/CpuTimesReader.h"

/// "Total CPU Usage" (0 to 100 %) of the CPU query and of the processor's group: the system's own
/// figure where there is one, else the busy share of the processors' times.
class CpuLoadCollector : public Collector
{
public:
    CpuLoadCollector(const MachineRoots &roots, const QString &group,
                     CpuLoadFigure figure = systemCpuLoadFigure());

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    struct Sample
    {
        CpuTimes times;
        qint64 timeNs = 0;
    };

    /// The busy share of the time since the last sample.
    std::optional<double> busyPercent(qint64 nowNs);
    [[nodiscard]] std::optional<double> figurePercent(qint64 nowNs) const;

    CpuTimesReader m_reader;
    const CpuLoadFigure m_figure;
    const QString m_group;
    std::optional<Sample> m_previous;
};
