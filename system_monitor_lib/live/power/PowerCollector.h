#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/power/PowerSupplyText.h"

#include <QString>

#include <utility>
#include <vector>

/// The batteries of the machine in groups of their own, and whether it is plugged in.
class PowerCollector : public Collector
{
public:
    /// Batteries are asked at this interval, because some answer slowly.
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(10);

    explicit PowerCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    void read();

    const QString m_root;
    Pace m_reading{readingPeriod};
    /// The labels of the batteries by name.
    std::vector<std::pair<QString, QJsonObject>> m_batteries;
    QJsonObject m_mains;
};
