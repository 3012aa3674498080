#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/processor/CpuLoadFigure.h"
#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include <memory>

/// "Total CPU Usage" (0 to 100 %) of the CPU query and of the processor's group: the system's own
/// figure where there is one, else the busy share of the processors' times. The loads of the single
/// processors and what they do are in the group of processorGroup().
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
        CpuDetails details;
        qint64 timeNs = 0;
    };

    /// Takes the next sample and returns the previous one; null if no rates can be computed from
    /// it.
    std::unique_ptr<Sample> advance(qint64 nowNs);
    static void addDetails(const CpuDetails &previous, const CpuDetails &current,
                           SensorTrees &trees);
    [[nodiscard]] std::optional<double> figurePercent(qint64 nowNs) const;

    CpuTimesReader m_reader;
    const CpuLoadFigure m_figure;
    const QString m_group;
    std::unique_ptr<Sample> m_current;
};
