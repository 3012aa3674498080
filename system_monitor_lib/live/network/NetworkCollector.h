#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/network/AdapterFigures.h"
#include "system_monitor_lib/live/network/AdapterReader.h"

#include <QHash>

/// Per physical adapter "Current UP rate" and "Current DL rate" (KB/s of 1024 bytes), for the
/// network query and the groups "Network: ADAPTER", which also have its other figures.
class NetworkCollector : public Collector
{
public:
    explicit NetworkCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    /// Whether an adapter carries more than its link speed, as emulated ones do.
    struct Excess
    {
        bool isSeen = false;    ///< In this sample.
        bool isLasting = false; ///< In two in a row, once.
    };
    struct State
    {
        AdapterCounters counters;
        qint64 timeNs = 0;
        /// Bytes per second as last queried, 0 when unknown.
        double linkSpeed = 0;
        Excess sent;
        Excess received;
        /// What is listed; its link speed is only queried now and then.
        AdapterFigures figures;
    };

    /// Computes the rates for the change from \a previous to \a current.
    void measure(const State &previous, State &current) const;
    static void add(const State &state, SensorTrees &trees);
    /// Whether the adapter can have carried this rate (bytes per second).
    bool isPossible(double rate, const Excess &before, Excess &now, State &state) const;

    AdapterReader m_reader;
    Pace m_speeds{listingPeriod};
    /// By name; when an adapter is removed, so is its state.
    QHash<QString, State> m_states;
};
