#include "system_monitor_lib/live/drives/StorageCollector.h"

#include "system_monitor_lib/live/DistinctName.h"
#include "system_monitor_lib/live/drives/DriveTree.h"

#include <algorithm>

StorageCollector::StorageCollector(Drives drives, Counters counters)
    : m_list(std::move(drives))
    , m_counters(std::move(counters))
{
}

bool StorageCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs))
        m_drives = m_list(nowNs);
    for (const StorageDrive &drive : inOrder())
        addDrive(trees, name(drive), drive.celsius);
    addActivity(nowNs, trees);
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

void StorageCollector::addActivity(qint64 nowNs, SensorTrees &trees)
{
    std::vector<DriveActivityGroups::Sample> samples;
    for (const StorageDrive &drive : m_drives) {
        samples.push_back({name(drive), {}});
        if (!drive.sleeps)
            samples.back().counters = m_counters(drive.place);
    }
    m_activity.add(samples, nowNs, trees);
}

DriveName StorageCollector::name(const StorageDrive &drive) const
{
    if (drive.model.isEmpty())
        return {drive.place, drive.place, drive.place};
    return {distinctName(drive, m_drives, &StorageDrive::model), drive.model, drive.place};
}
