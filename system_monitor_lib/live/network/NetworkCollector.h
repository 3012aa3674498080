#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/network/AdapterReader.h"

#include <QHash>

/// Per physical adapter "Current UP rate" and "Current DL rate" (KB/s of 1024 bytes), for the
/// network query and the groups "Network: ADAPTER".
class NetworkCollector : public Collector
{
public:
    explicit NetworkCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    /// Whether an adapter moves more than its link can, which emulated ones do.
    struct Excess
    {
        bool isSeen = false;    ///< In this sample.
        bool isLasting = false; ///< In two in a row, once.
    };
    struct State
    {
        AdapterCounters counters;
        qint64 timeNs = 0;
        /// Bytes per second as last asked for, 0 when unknown.
        double linkSpeed = 0;
        Excess sent;
        Excess received;
    };

    /// The labels that the step from \a previous to \a current gives.
    QJsonObject labels(const State &previous, State &current) const;
    /// Whether the adapter can have carried this rate (bytes per second).
    bool isPossible(double rate, const Excess &before, Excess &now, State &state) const;

    AdapterReader m_reader;
    /// By name; an adapter that has gone takes its state along.
    QHash<QString, State> m_states;
};
