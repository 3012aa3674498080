#pragma once

#include "system_monitor_lib/DistinctLabels.h"
#include "system_monitor_lib/TreeSource.h"
#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/MonotonicClock.h"

#include <chrono>
#include <memory>
#include <vector>

/// Serves the readings of this machine. All queries share one sample while it is fresh.
class LiveSource : public TreeSource
{
public:
    /// The maximum age of a sample that is reused for further queries.
    static constexpr std::chrono::nanoseconds freshness = std::chrono::milliseconds(250);

    explicit LiveSource(const MachineRoots &roots = thisMachine(),
                        const MonotonicClock &clock = monotonicNanoseconds);

    /// Takes the first sample, on which the first rates are based. False when nothing on this
    /// machine can be read.
    bool open() override;
    QJsonObject tree(Query query) override;

private:
    bool sample(qint64 nowNs);

    const MachineRoots m_roots;
    const MonotonicClock m_clock;
    std::vector<std::unique_ptr<Collector>> m_collectors;
    SensorTrees m_trees;
    DistinctLabels m_labels;
    qint64 m_sampledNs = 0;
};
