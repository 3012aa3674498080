#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/memory/MemoryReader.h"

/// "Physical Memory Load" (%), "Physical Memory Used" and "Physical Memory Available" (whole MB of
/// 1024 KiB, which together give the total).
QJsonObject memoryLabels(const MemoryState &state);

/// The labels of the memory for the system query and the group "System: memory", and its details
/// in a group of their own.
class MemoryCollector : public Collector
{
public:
    explicit MemoryCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    MemoryReader m_reader;
    Pace m_reading{MemoryReader::detailsPeriod};
    QJsonObject m_details;
};
