#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"

#include <memory>

/// "CPU Package" (°C) of the processor's own sensor, for the temperature query, the enhanced query
/// and the processor's group. It is chosen by driver, then by label: the package of coretemp, Tdie
/// or else Tctl of k10temp and zenpower, the only sensor of a board's cpu_thermal zone. The
/// processors of the second kind also bear the label "CPU (Tctl/Tdie)" in the enhanced query.
class CpuTemperatureCollector : public Collector
{
public:
    CpuTemperatureCollector(const MachineRoots &roots, const QString &group);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    struct Choice
    {
        QString input;
        bool isTctlOrTdie = false;
    };

    [[nodiscard]] Choice choose() const;
    void look();

    const MachineRoots m_roots;
    const QString m_group;
    Pace m_listing{listingPeriod};
    Choice m_choice;
    std::unique_ptr<Attribute> m_temperature;
};
