#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/drives/DriveActivityGroups.h"
#include "system_monitor_lib/live/drives/StorageDrives.h"

#include <QStringList>

#include <functional>

/// "Drive Temperature" (whole °C) of each drive that \a drives lists, for the drive query and the
/// groups "Drive: NAME"; and what DriveActivityGroups makes of \a counters. A drive is named after
/// its model, and also its place if several have the same model.
class StorageCollector : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(30);

    using Drives = std::function<std::vector<StorageDrive>(qint64 nowNs)>;

    using Counters = std::function<std::optional<DriveCounters>(const QString &place)>;

    StorageCollector(Drives drives, Counters counters);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    [[nodiscard]] DriveName name(const StorageDrive &drive) const;
    /// A drive that sleeps is not even opened.
    void addActivity(qint64 nowNs, SensorTrees &trees);

    /// Drives that have reported a temperature come first: many drives have no sensor, and these
    /// must not take the unprefixed label in the list of all sensors.
    std::vector<StorageDrive> inOrder();

    const Drives m_list;
    const Counters m_counters;
    Pace m_reading{readingPeriod};
    std::vector<StorageDrive> m_drives;
    DriveActivityGroups m_activity;
    /// The places of the drives that have reported a temperature, in that order.
    QStringList m_told;
};
