#include "sensors/machine/MountedDrives_linux.h"

#include "sensors/machine/MountPlaces.h"

#include <QPair>
#include <QSet>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include <dirent.h>
#include <linux/fs.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/statvfs.h>

namespace {

struct FolderCloser
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

/// Images of programs and media, which are always full and cannot be written to.
bool isReadOnlyImage(const QByteArray &fileSystem)
{
    static const std::array<const char *, 6> images{"squashfs", "erofs",  "iso9660",
                                                    "udf",      "cramfs", "romfs"};
    return std::any_of(images.begin(), images.end(),
                       [&fileSystem](const char *image) { return fileSystem == image; });
}

bool isPartOfAFileSystem(const Mount &mount)
{
    // A system may itself run from such a part, and mounting subvolumes is usual with btrfs.
    return mount.root != "/" && mount.mountPoint != QLatin1String("/") &&
           mount.fileSystem != "btrfs";
}

QByteArray poolOf(const Mount &mount)
{
    return mount.source.split('/').first();
}

bool isDataSet(const Mount &mount)
{
    const bool isSnapshot = mount.source.contains('@');
    return mount.fileSystem == "zfs" && !isSnapshot && !poolOf(mount).isEmpty();
}

/// The places where something is mounted, each with the mount that it lies in.
using Places = QSet<QPair<unsigned, QString>>;

Places placesOf(const QVector<Mount> &mounts)
{
    Places places;
    for (const Mount &mount : mounts) {
        if (mount.parent != mount.id)
            places.insert({mount.parent, mount.mountPoint});
    }
    return places;
}

/// Whether something was mounted later over \a mount or over a folder above it, so that its path
/// leads elsewhere, perhaps to a network that does not answer.
bool isCovered(const Mount &mount, const Places &places)
{
    if (places.contains({mount.id, mount.mountPoint}))
        return true;
    using Place = QString::size_type;
    Place end = mount.mountPoint.size();
    while (end > 1) {
        end = std::max(mount.mountPoint.lastIndexOf(QLatin1Char('/'), end - 1), Place{0});
        const QString folder = mount.mountPoint.left(std::max(end, Place{1}));
        if (places.contains({mount.parent, folder}))
            return true;
    }
    return false;
}

std::optional<DriveSpace> spaceAt(const QString &folder)
{
    struct statvfs state = {};
    if (::statvfs(QFile::encodeName(folder).constData(), &state) != 0)
        return std::nullopt;
    return DriveSpace{quint64(state.f_bavail) * state.f_frsize,
                      quint64(state.f_blocks) * state.f_frsize};
}

} // namespace

MountedDrives::MountedDrives(const QString &procRoot, const QString &sysRoot,
                             const QString &devRoot)
    : m_mountInfo(procRoot + QStringLiteral("/self/mountinfo"))
    , m_devices(sysRoot, devRoot)
{
}

QStringList MountedDrives::fixedRoots()
{
    if (hasChanged())
        readDrives();
    QStringList roots;
    roots.reserve(m_drives.size());
    for (const Drive &drive : qAsConst(m_drives))
        roots.append(drive.root);
    return roots;
}

bool MountedDrives::hasChanged()
{
    if (!m_mountInfo.isOpen())
        return m_mountInfo.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    pollfd change{m_mountInfo.handle(), POLLPRI, 0};
    return ::poll(&change, 1, 0) > 0 && (change.revents & (POLLPRI | POLLERR)) != 0;
}

void MountedDrives::readDrives()
{
    m_mountInfo.seek(0);
    const QVector<Mount> mounts = parseMountInfo(m_mountInfo.readAll());
    const QStringList systemDisks = disksOfTheSystem(mounts);
    m_drives.clear();
    const Places places = placesOf(mounts);
    QSet<DeviceNumber> seen;
    for (const Mount &mount : mounts) {
        if (isReadOnlyImage(mount.fileSystem) || isPartOfAFileSystem(mount) ||
            seen.contains(mount.device))
            continue;
        if (isDataSet(mount)) {
            if (!isCovered(mount, places)) {
                seen.insert(mount.device);
                addDataSet(mount);
            }
            continue;
        }
        if (!isPlaceOfADrive(mount.mountPoint))
            continue;
        const QVector<DeviceNumber> devices = devicesOf(mount);
        const bool isFixed = std::all_of(devices.begin(), devices.end(), [&](DeviceNumber device) {
            return m_devices.isFixed(device, systemDisks);
        });
        if (devices.isEmpty() || !isFixed || isCovered(mount, places))
            continue;
        seen.insert(mount.device);
        m_drives.append({mount.mountPoint, m_devices.label(devices.first()), {}, {}});
    }
    // A pool without a mount that counts as a drive.
    const auto noDrive = [](const Drive &drive) { return drive.root.isEmpty(); };
    m_drives.erase(std::remove_if(m_drives.begin(), m_drives.end(), noDrive), m_drives.end());
    readPools();
}

/// Only the tools of ZFS can list the disks of a pool, so they count as fixed.
void MountedDrives::addDataSet(const Mount &mount)
{
    const QByteArray name = poolOf(mount);
    auto pool = std::find_if(m_drives.begin(), m_drives.end(),
                             [&name](const Drive &drive) { return drive.pool == name; });
    if (pool == m_drives.end())
        pool = m_drives.insert(m_drives.end(), {{}, QString::fromUtf8(name), name, {}});
    if (pool->root.isEmpty() && isPlaceOfADrive(mount.mountPoint))
        pool->root = mount.mountPoint;
    pool->dataSets.append(mount.mountPoint);
}

void MountedDrives::readPools()
{
    QHash<QByteArray, PoolSpace> pools;
    for (const Drive &drive : qAsConst(m_drives)) {
        if (drive.pool.isEmpty())
            continue;
        PoolSpace pool = m_pools.value(drive.pool);
        pool.setDataSets(drive.dataSets);
        pools.insert(drive.pool, pool);
    }
    m_pools.swap(pools);
}

/// None if the file system is not on disks of this machine.
QVector<DeviceNumber> MountedDrives::devicesOf(const Mount &mount) const
{
    if (mount.fileSystem == "bcachefs") {
        QVector<DeviceNumber> devices;
        for (const QByteArray &source : mount.source.split(':'))
            devices.append(m_devices.deviceAt(source));
        if (!devices.contains(DeviceNumber{}))
            return devices;
    }
    // File systems on networks, in memory and overlays have major number 0, but so does btrfs.
    if (mount.device.major != 0)
        return {mount.device};
    if (mount.fileSystem != "btrfs")
        return {};
    return m_devices.membersOfBtrfs(m_devices.deviceAt(mount.source));
}

QStringList MountedDrives::disksOfTheSystem(const QVector<Mount> &mounts) const
{
    QStringList disks;
    for (const Mount &mount : mounts) {
        if (mount.mountPoint != QLatin1String("/"))
            continue;
        for (const DeviceNumber device : devicesOf(mount))
            disks += m_devices.disksOf(device);
    }
    return disks;
}

std::optional<QString> MountedDrives::volumeName(const QString &root)
{
    const auto drive = std::find_if(m_drives.begin(), m_drives.end(),
                                    [&root](const Drive &each) { return each.root == root; });
    if (drive == m_drives.end())
        return std::nullopt;
    const OpenFolder folder(::opendir(QFile::encodeName(root).constData()));
    if (!folder && errno != EACCES)
        return std::nullopt;
    std::array<char, FSLABEL_MAX> label{};
    if (drive->pool.isEmpty() && folder &&
        ::ioctl(::dirfd(folder.get()), FS_IOC_GETFSLABEL, label.data()) == 0)
        return QString::fromUtf8(label.data(),
                                 static_cast<int>(qstrnlen(label.data(), FSLABEL_MAX)));
    return drive->recordedLabel;
}

std::optional<DriveSpace> MountedDrives::space(const QString &root)
{
    const auto drive = std::find_if(m_drives.begin(), m_drives.end(),
                                    [&root](const Drive &each) { return each.root == root; });
    if (drive == m_drives.end() || drive->pool.isEmpty())
        return spaceAt(root);
    return m_pools[drive->pool].refresh(spaceAt);
}
