#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"

#include <memory>

/// The readings of each GPU, for the GPU query and the groups "GPU [#N]: NAME". The GPU with the
/// most memory of its own is number 0; a sleeping GPU comes last and has only a group. In the list
/// of all sensors the unprefixed labels belong to the GPU with the most memory, even while it
/// sleeps.
class GpuCollector : public Collector
{
public:
    explicit GpuCollector(std::vector<std::unique_ptr<GpuSource>> sources);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    const std::vector<std::unique_ptr<GpuSource>> m_sources;
};
