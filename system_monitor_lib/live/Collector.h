#pragma once

#include "system_monitor_lib/SensorTrees.h"

#include <chrono>

/// One source of readings of this machine.
class Collector
{
public:
    Collector() = default;
    virtual ~Collector() = default;
    Q_DISABLE_COPY(Collector)

    /// Takes a sample and adds its labels to \a trees. \a nowNs is monotonic time in nanoseconds,
    /// used for rates and for sources that are read rarely. False when the source cannot be read.
    virtual bool collect(qint64 nowNs, SensorTrees &trees) = 0;

    /// The longest time for a sample before the collector counts as slow.
    [[nodiscard]] virtual std::chrono::nanoseconds patience() const
    {
        return std::chrono::milliseconds(50);
    }
};
