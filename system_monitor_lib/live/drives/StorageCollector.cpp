#include "system_monitor_lib/live/drives/StorageCollector.h"

#include "system_monitor_lib/live/DistinctName.h"
#include "system_monitor_lib/live/drives/DriveTree.h"

#include <algorithm>

StorageCollector::StorageCollector(Drives drives)
    : m_list(std::move(drives))
{
}

bool StorageCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_drives = m_list(nowNs);
    for (const StorageDrive &drive : inOrder())
        addDrive(trees,
                 {name(drive), drive.model.isEmpty() ? drive.place : drive.model, drive.place},
                 drive.celsius);
    return !m_drives.empty();
}

std::vector<StorageDrive> StorageCollector::inOrder()
{
    for (const StorageDrive &drive : m_drives) {
        if (drive.celsius && !m_told.contains(drive.place))
            m_told += drive.place;
    }
    const auto rank = [this](const StorageDrive &drive) {
        const auto index = m_told.indexOf(drive.place);
        return index < 0 ? m_told.size() : index;
    };
    std::vector<StorageDrive> drives = m_drives;
    std::stable_sort(drives.begin(), drives.end(),
                     [&rank](const auto &a, const auto &b) { return rank(a) < rank(b); });
    return drives;
}

QString StorageCollector::name(const StorageDrive &drive) const
{
    if (drive.model.isEmpty())
        return drive.place;
    return distinctName(drive, m_drives, &StorageDrive::model);
}
