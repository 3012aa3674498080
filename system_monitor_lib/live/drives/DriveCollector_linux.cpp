#include "system_monitor_lib/live/drives/DriveCollector.h"

#include "system_monitor_lib/live/DistinctName.h"
#include "system_monitor_lib/live/drives/DriveTree.h"
#include "system_monitor_lib/live/files/DeviceOrder.h"
#include "system_monitor_lib/live/files/FolderNames.h"
#include "system_monitor_lib/live/files/HwmonChip.h"
#include "system_monitor_lib/live/files/SysfsText.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// The folder of the block device below a SCSI device; empty when there is none.
QString blockDevice(const QString &device)
{
    const QString blocks = device + QStringLiteral("/block/");
    const QStringList names = folderNames(blocks);
    return names.isEmpty() ? QString() : blocks + names.first();
}

bool isNvme(const HwmonChip &chip)
{
    return chip.name == QLatin1String("nvme");
}

bool isDrive(const HwmonChip &chip)
{
    return isNvme(chip) || chip.name == QLatin1String("drivetemp");
}

/// The folder of the drive itself. Before Linux 5.12 the chip of an NVMe drive belongs to the slot,
/// below which the drive is.
QString driveFolder(const HwmonChip &chip)
{
    const QString device = chip.directory + QStringLiteral("/device");
    const QString drives = device + QStringLiteral("/nvme/");
    const QStringList names = isNvme(chip) ? folderNames(drives) : QStringList();
    return names.isEmpty() ? device : drives + names.first();
}

/// The name of the folder, one above for NVMe, whose own number differs between boots.
QString placeOf(const HwmonChip &chip, const QString &device)
{
    const QString link = isNvme(chip) ? device + QStringLiteral("/device") : device;
    const QString place = QFileInfo(QFileInfo(link).canonicalFilePath()).fileName();
    return place.isEmpty() ? QFileInfo(chip.directory).fileName() : place;
}

} // namespace

DriveCollector::DriveCollector(const MachineRoots &roots)
    : m_roots(roots)
    , m_blocks(roots)
{
}

QString DriveCollector::name(const Drive &drive) const
{
    return distinctName(drive, m_drives, &Drive::model);
}

void DriveCollector::look()
{
    std::vector<Drive> drives;
    for (const HwmonChip &chip : hwmonChips(m_roots)) {
        if (!isDrive(chip))
            continue;
        const auto known =
            std::find_if(m_drives.begin(), m_drives.end(),
                         [&chip](const Drive &drive) { return drive.directory == chip.directory; });
        if (known != m_drives.end()) {
            drives.push_back(std::move(*known));
            continue;
        }
        const QString device = driveFolder(chip);
        const auto attribute = [](const QString &path) {
            return std::make_unique<Attribute>(path);
        };
        Drive drive;
        drive.directory = chip.directory;
        drive.device = QFileInfo(device).canonicalFilePath();
        drive.model = attributeWord(device + QStringLiteral("/model"));
        drive.place = placeOf(chip, device);
        drive.order = orderOfDevice(device);
        if (drive.model.isEmpty())
            drive.model = chip.name;
        drive.temperature = attribute(chip.directory + QStringLiteral("/temp1_input"));
        drive.runtimeStatus =
            attribute(device + (isNvme(chip) ? QStringLiteral("/device/power/runtime_status")
                                             : QStringLiteral("/power/runtime_status")));
        const QString block = isNvme(chip) ? QString() : blockDevice(device);
        if (!isNvme(chip) &&
            attributeWord(block + QStringLiteral("/queue/rotational")) != QLatin1String("0")) {
            drive.served = attribute(block + QStringLiteral("/stat"));
            drive.lastServed = drive.served->word();
        }
        drives.push_back(std::move(drive));
    }
    std::sort(drives.begin(), drives.end(),
              [](const Drive &a, const Drive &b) { return a.order < b.order; });
    m_drives = std::move(drives);
}

void DriveCollector::read(Drive &drive, qint64 nowNs)
{
    if (drive.celsius && (nowNs < drive.readNs || nowNs - drive.readNs > idlePeriod.count()))
        drive.celsius.reset();
    if (drive.served) {
        const QString served = drive.served->word();
        if (served.isEmpty() || served == std::exchange(drive.lastServed, served))
            return;
    }
    if (meansAsleep(drive.runtimeStatus->word()))
        return;
    drive.celsius = drive.temperature->celsius();
    drive.readNs = nowNs;
}

bool DriveCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_reading.isDue(nowNs)) {
        look();
        for (Drive &drive : m_drives)
            read(drive, nowNs);
    }
    const std::vector<BlockDrive> &blocks = m_blocks.read(nowNs);
    add(trees, blocks);
    return !m_drives.empty() || !blocks.empty();
}

void DriveCollector::add(SensorTrees &trees, const std::vector<BlockDrive> &blocks) const
{
    std::vector<const BlockDrive *> others;
    others.reserve(blocks.size());
    for (const BlockDrive &block : blocks)
        others.push_back(&block);
    for (const Drive &drive : m_drives) {
        const auto block =
            std::find_if(others.begin(), others.end(), [&drive](const BlockDrive *other) {
                return other->device == drive.device;
            });
        const auto activity =
            block == others.end() ? std::optional<DriveActivity>() : (*block)->activity;
        if (block != others.end())
            others.erase(block);
        addDrive(trees, {name(drive), drive.model, drive.place}, drive.celsius, activity);
    }
    for (const BlockDrive *const block : others)
        addListedDrive(trees, {name(*block, blocks), block->model, block->place}, block->activity);
}

QString DriveCollector::name(const BlockDrive &drive, const std::vector<BlockDrive> &all) const
{
    const bool isTaken =
        std::any_of(m_drives.begin(), m_drives.end(),
                    [&drive](const Drive &other) { return other.model == drive.model; });
    return isTaken ? QStringLiteral("%1 (%2)").arg(drive.model, drive.place)
                   : distinctName(drive, all, &BlockDrive::model);
}
