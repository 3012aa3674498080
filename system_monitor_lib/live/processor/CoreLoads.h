#pragma once

#include "system_monitor_lib/live/processor/CpuTimes.h"

#include <QJsonObject>

#include <optional>
#include <vector>

/// The times of one logical processor since the machine started.
struct CoreTimes
{
    int number = 0;
    CpuTimes times;
};

/// What all processors together have spent their time on, in any one unit.
struct CpuModes
{
    quint64 user = 0;
    quint64 system = 0;
    /// For a disk, having nothing else to do; absent where the system does not count it.
    std::optional<quint64> waiting;
    quint64 total = 0;
};

/// The processors' times in detail, as far as the system tells them.
struct CpuDetails
{
    std::optional<CpuModes> modes;
    std::vector<CoreTimes> cores;
};

/// "Core #N Load" (%) of each logical processor that both samples have, and "Busiest Core Load".
/// Both must be in the order of their numbers.
QJsonObject coreLoadLabels(const std::vector<CoreTimes> &previous,
                           const std::vector<CoreTimes> &current);

/// "User Load", "System Load" and "Waiting for Disks" (% of the time of all processors). None when
/// no time has passed or the counters started anew.
QJsonObject cpuModeLabels(const CpuModes &previous, const CpuModes &current);

/// The group of these labels. Its name must not hold the word by which the group with the
/// processor's model is found.
QString processorGroup();
