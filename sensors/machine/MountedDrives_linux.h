#pragma once

#include "sensors/machine/BlockDevices_linux.h"
#include "sensors/machine/drives.h"

#include <QFile>
#include <QVector>

/// The fixed drives among the mounted file systems: one for each file system, at the place where it
/// was mounted first. Read-only images and parts of a file system mounted elsewhere are left out.
class MountedDrives : public DriveSource
{
public:
    /// The roots stand for /proc, /sys and /dev. The table of mounts is read again only when the
    /// kernel tells of a change.
    MountedDrives(const QString &procRoot, const QString &sysRoot, const QString &devRoot);

    QStringList fixedRoots() override;
    std::optional<QString> volumeName(const QString &root) override;
    std::optional<DriveSpace> space(const QString &root) override;

private:
    struct Drive
    {
        QString root;
        QString recordedLabel; ///< By the device manager, for file systems that cannot be asked.
    };

    bool hasChanged();
    void readDrives();
    DeviceNumber fixedDisk(const Mount &mount) const;

    QFile m_mountInfo;
    BlockDevices m_devices;
    QVector<Drive> m_drives;
};
