#include "system_monitor_lib/live/drives/StorageCollector.h"

#include "system_monitor_lib/live/DistinctName.h"
#include "system_monitor_lib/live/drives/DriveTree.h"

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
    return distinctName(drive, m_drives, &StorageDrive::model);
}
