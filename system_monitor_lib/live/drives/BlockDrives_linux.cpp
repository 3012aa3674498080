#include "system_monitor_lib/live/drives/BlockDrives.h"

#include "system_monitor_lib/live/drives/BlockStatText.h"
#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/DeviceOrder.h"
#include "system_monitor_lib/live/files/FolderNames.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

/// Empty if its maker has not named it.
QString modelOf(const QString &device)
{
    const QString model = attributeWord(device + QStringLiteral("/model"));
    return model.isEmpty() ? attributeWord(device + QStringLiteral("/name")) : model;
}

BlockDrive describe(const QString &name, const QString &device, const QString &model)
{
    BlockDrive drive;
    drive.name = name;
    drive.device = device;
    drive.order = orderOfDevice(device);
    drive.model = model;
    // The number of an NVMe drive differs between boots, that of its slot does not.
    const bool isNvme = name.startsWith(QLatin1String("nvme"));
    const QString slot =
        isNvme ? QFileInfo(device + QStringLiteral("/device")).canonicalFilePath() : device;
    drive.place = QFileInfo(slot).fileName();
    if (drive.place.isEmpty())
        drive.place = name;
    else if (isNvme && !name.endsWith(QLatin1String("n1")))
        drive.place += QLatin1Char(' ') + name.mid(name.lastIndexOf(QLatin1Char('n')));
    return drive;
}

} // namespace

BlockDrives::BlockDrives(const MachineRoots &roots)
    : m_root(roots.sys + QStringLiteral("/block/"))
{
}

BlockDrives::~BlockDrives() = default;

bool BlockDrives::isDrive(const QString &name) const
{
    static const QRegularExpression isPart(QStringLiteral("^mmcblk\\d+(boot\\d+|rpmb)$"));
    // All but the first two have no device of their own; there may be many of them.
    static constexpr const char *others[] = {"sr", "fd", "loop", "ram", "zram", "nbd", "dm-", "md"};
    const bool isOther =
        std::any_of(std::begin(others), std::end(others),
                    [&name](const char *start) { return name.startsWith(QLatin1String(start)); });
    if (isOther || isPart.match(name).hasMatch())
        return false;
    const QString folder = m_root + name;
    return QFileInfo::exists(folder + QStringLiteral("/device")) &&
           attributeWord(folder + QStringLiteral("/hidden")) != QLatin1String("1") &&
           attributeWord(folder + QStringLiteral("/size")) != QLatin1String("0");
}

/// Describes only what is new, because resolving links costs most of it.
BlockDrive BlockDrives::find(const QString &name) const
{
    const QString device = QFileInfo(m_root + name + QStringLiteral("/device")).canonicalFilePath();
    const QString told = modelOf(device);
    const QString &model = told.isEmpty() ? name : told;
    const auto known = std::find_if(m_drives.begin(), m_drives.end(), [&](const BlockDrive &drive) {
        return drive.name == name && drive.device == device && drive.model == model;
    });
    return known != m_drives.end() ? *known : describe(name, device, model);
}

void BlockDrives::look()
{
    constexpr std::size_t longestStat = 512;
    std::vector<BlockDrive> drives;
    for (const QString &name : folderNames(m_root)) {
        if (isDrive(name))
            drives.push_back(find(name));
    }
    std::sort(drives.begin(), drives.end(), [](const BlockDrive &a, const BlockDrive &b) {
        return std::tie(a.order, a.name) < std::tie(b.order, b.name);
    });
    std::vector<Counted> counted(drives.size());
    for (std::size_t index = 0; index < drives.size(); ++index) {
        const BlockDrive &drive = drives[index];
        const auto known =
            std::find_if(m_drives.begin(), m_drives.end(), [&drive](const BlockDrive &other) {
                return other.name == drive.name && other.device == drive.device;
            });
        if (known != m_drives.end())
            counted[index] =
                std::move(m_counted[static_cast<std::size_t>(known - m_drives.begin())]);
        else
            counted[index].stat = std::make_unique<PolledFile>(
                m_root + drive.name + QStringLiteral("/stat"), longestStat);
    }
    m_drives = std::move(drives);
    m_counted = std::move(counted);
}

void BlockDrives::measure(BlockDrive &drive, Counted &counted, qint64 nowNs)
{
    const std::optional<DriveCounters> counters = parseBlockStat(counted.stat->read());
    drive.activity = counters && counted.counters
                         ? driveActivity(*counted.counters, *counters, nowNs - counted.timeNs)
                         : std::nullopt;
    counted.counters = counters;
    counted.timeNs = nowNs;
}

const std::vector<BlockDrive> &BlockDrives::read(qint64 nowNs)
{
    if (m_listing.isDue(nowNs))
        look();
    for (std::size_t index = 0; index < m_drives.size(); ++index)
        measure(m_drives[index], m_counted[index], nowNs);
    return m_drives;
}
