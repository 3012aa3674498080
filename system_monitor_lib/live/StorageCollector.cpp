#include "system_monitor_lib/live/StorageCollector.h"

#include "system_monitor_lib/live/DriveTree.h"

#include <algorithm>

StorageCollector::StorageCollector(Drives drives)
    : m_list(std::move(drives))
{
}

bool StorageCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_drives = m_list();
    for (const StorageDrive &drive : m_drives)
        addDrive(trees, name(drive), drive.celsius);
    return !m_drives.empty();
}

QString StorageCollector::name(const StorageDrive &drive) const
{
    if (drive.model.isEmpty())
        return drive.place;
    const auto namesakes =
        std::count_if(m_drives.begin(), m_drives.end(),
                      [&drive](const StorageDrive &other) { return other.model == drive.model; });
    return namesakes > 1 ? QStringLiteral("%1 (%2)").arg(drive.model, drive.place) : drive.model;
}
