#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/processor/CpuTimesReader.h"

/// "Total CPU Usage" (%) of the CPU query and of the processor's group.
class CpuLoadCollector : public Collector
{
public:
    CpuLoadCollector(const MachineRoots &roots, const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    struct Sample
    {
        CpuTimes times;
        qint64 timeNs = 0;
    };

    [[nodiscard]] QJsonObject labels(const Sample &sample) const;

    CpuTimesReader m_reader;
    const QString m_group;
    std::optional<Sample> m_previous;
};
