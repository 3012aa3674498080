#include "sensors/machine/MountedDrives_linux.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include <fcntl.h>
#include <linux/fs.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

class Descriptor
{
public:
    explicit Descriptor(const QString &folder)
        : m_descriptor(::open(QFile::encodeName(folder).constData(),
                              O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK))
    {
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY(Descriptor)

    int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// Images of programs and media: always full, never written to.
bool isReadOnlyImage(const QByteArray &fileSystem)
{
    static const std::array<const char *, 6> images{"squashfs", "erofs",  "iso9660",
                                                    "udf",      "cramfs", "romfs"};
    return std::any_of(images.begin(), images.end(),
                       [&fileSystem](const char *image) { return fileSystem == image; });
}

bool isPartOfAFileSystem(const Mount &mount)
{
    // A system may itself run from a part, and subvolumes are the way of btrfs.
    return mount.root != "/" && mount.mountPoint != QLatin1String("/") &&
           mount.fileSystem != "btrfs";
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
    m_drives.clear();
    QVector<DeviceNumber> seen;
    for (const Mount &mount : mounts) {
        if (isReadOnlyImage(mount.fileSystem) || isPartOfAFileSystem(mount) ||
            seen.contains(mount.device))
            continue;
        const DeviceNumber disk = fixedDisk(mount);
        if (disk == DeviceNumber{})
            continue;
        seen.append(mount.device);
        m_drives.append({mount.mountPoint, m_devices.label(disk)});
    }
}

/// 0:0 when the file system is not on fixed disks.
DeviceNumber MountedDrives::fixedDisk(const Mount &mount) const
{
    // Networks, memory and overlays have major number 0, and so has btrfs, which may span disks.
    DeviceNumber disk = mount.device;
    if (disk.major == 0)
        disk = mount.fileSystem == "btrfs" ? m_devices.deviceAt(mount.source) : DeviceNumber{};
    return m_devices.isFixed(disk) ? disk : DeviceNumber{};
}

std::optional<QString> MountedDrives::volumeName(const QString &root)
{
    const auto drive = std::find_if(m_drives.begin(), m_drives.end(),
                                    [&root](const Drive &each) { return each.root == root; });
    if (drive == m_drives.end())
        return std::nullopt;
    const Descriptor folder(root);
    if (folder.get() < 0 && errno != EACCES)
        return std::nullopt;
    std::array<char, FSLABEL_MAX> label{};
    if (folder.get() >= 0 && ::ioctl(folder.get(), FS_IOC_GETFSLABEL, label.data()) == 0)
        return QString::fromUtf8(label.data(),
                                 static_cast<int>(qstrnlen(label.data(), FSLABEL_MAX)));
    return drive->recordedLabel;
}

std::optional<DriveSpace> MountedDrives::space(const QString &root)
{
    struct statvfs state = {};
    if (::statvfs(QFile::encodeName(root).constData(), &state) != 0)
        return std::nullopt;
    return DriveSpace{quint64(state.f_bavail) * state.f_frsize,
                      quint64(state.f_blocks) * state.f_frsize};
}
