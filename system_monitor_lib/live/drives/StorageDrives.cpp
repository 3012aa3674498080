#include "system_monitor_lib/live/drives/StorageDrives.h"

#include "system_monitor_lib/live/drives/StorageAnswers.h"

#include <utility>

StorageDrives::StorageDrives(std::unique_ptr<StorageSystem> system)
    : m_system(std::move(system))
{
}

bool StorageDrives::isUsed(OpenDrive &drive, Known &known, bool isNew)
{
    if (!parseIsRotating(drive.property(OpenDrive::Property::SeekPenalty)))
        return true;
    const QByteArray served = parseServed(drive.performance());
    const bool isSame = served == std::exchange(known.served, served);
    // Where nobody counts, the disk is asked.
    return served.isEmpty() || (!isSame && !isNew);
}

std::vector<StorageDrive> StorageDrives::read(qint64 nowNs)
{
    constexpr int mostDrives = 64;
    std::vector<StorageDrive> drives;
    QHash<QString, Known> found;
    for (int number = 0; number < mostDrives; ++number) {
        const QString place = QStringLiteral("PhysicalDrive%1").arg(number);
        const std::unique_ptr<OpenDrive> drive = m_system->open(place);
        if (!drive)
            continue;
        const QString model = parseDriveModel(drive->property(OpenDrive::Property::Device));
        const bool isNew = !m_known.contains(place) || m_known.value(place).model != model;
        Known known = isNew ? Known{model, {}, {}, 0} : m_known.value(place);
        const bool sleeps = !drive->isAwake();
        const bool isOld = nowNs < known.readNs || nowNs - known.readNs > idlePeriod.count();
        if (sleeps || isOld)
            known.celsius.reset();
        if (isUsed(*drive, known, isNew) && !sleeps) {
            known.celsius = parseDriveCelsius(drive->property(OpenDrive::Property::Temperature));
            known.readNs = nowNs;
        }
        drives.push_back({place, model, known.celsius, sleeps});
        found.insert(place, known);
    }
    m_known = std::move(found);
    return drives;
}

std::optional<DriveCounters> StorageDrives::counters(const QString &place) const
{
    const std::unique_ptr<OpenDrive> drive = m_system->open(place);
    return drive ? parseDriveCounters(drive->performance()) : std::nullopt;
}
