#pragma once

#include "sensors/machine/BlockDevices_linux.h"
#include "sensors/machine/drives.h"

#include <QFile>
#include <QVector>

/// The space of a ZFS pool by that of its data sets, each of which says what it holds itself and
/// the space that is free to it: all that they hold, and the most that is free.
DriveSpace poolSpace(const QVector<DriveSpace> &dataSets);

/// The fixed drives among the mounted file systems: one for each file system, at the place where it
/// was mounted first, and one for each pool of ZFS. Read-only images, parts of a file system
/// mounted elsewhere, and what the system starts from or a container has for itself are left out.
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
        QByteArray pool;       ///< Of ZFS; empty for other file systems.
        QStringList dataSets;  ///< Where those of the pool are mounted.
    };

    bool hasChanged();
    void readDrives();
    void addDataSet(const Mount &mount);
    QVector<DeviceNumber> devicesOf(const Mount &mount) const;
    QStringList disksOfTheSystem(const QVector<Mount> &mounts) const;

    QFile m_mountInfo;
    BlockDevices m_devices;
    QVector<Drive> m_drives;
};
