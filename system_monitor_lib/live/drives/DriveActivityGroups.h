#pragma once

#include "system_monitor_lib/live/drives/DriveActivity.h"
#include "system_monitor_lib/live/drives/DriveTree.h"

#include <QHash>

#include <vector>

/// The labels of DriveActivity for the groups "Drive activity: NAME" of the list of all sensors. A
/// drive keeps its labels from its first sample on.
class DriveActivityGroups
{
public:
    struct Sample
    {
        DriveName name;
        /// Absent when the drive was not asked.
        std::optional<DriveCounters> counters;
    };

    /// \a drives in an order that restarts do not change: the first one has the unprefixed labels.
    void add(const std::vector<Sample> &drives, qint64 nowNs, SensorTrees &trees);

private:
    struct Past
    {
        std::optional<DriveCounters> counters;
        qint64 timeNs = 0;
    };

    /// By place and model.
    QHash<QString, Past> m_past;
};
