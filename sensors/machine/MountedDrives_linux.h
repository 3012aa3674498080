#pragma once

#include "sensors/machine/BlockDevices_linux.h"
#include "sensors/machine/PoolSpace.h"
#include "sensors/machine/drives.h"

#include <QFile>
#include <QHash>
#include <QVector>

/// The fixed drives among the mounted file systems: one for each file system, at the place where it
/// was mounted first, and one for each pool of ZFS. Read-only images, parts of a file system
/// mounted elsewhere, what the system starts from, and what belongs to containers are left out.
class MountedDrives : public DriveSource
{
public:
    /// The roots stand for /proc, /sys and /dev. The table of mounts is read again only when the
    /// kernel reports a change.
    MountedDrives(const QString &procRoot, const QString &sysRoot, const QString &devRoot);

    QStringList fixedRoots() override;
    std::optional<QString> volumeName(const QString &root) override;
    std::optional<DriveSpace> space(const QString &root) override;

private:
    struct Drive
    {
        QString root;
        QString recordedLabel; ///< From /dev/disk/by-label, for file systems that report none.
        QByteArray pool;       ///< Name of the ZFS pool; empty for other file systems.
        QStringList dataSets;  ///< Where the data sets of the pool are mounted.
    };

    bool hasChanged();
    void readDrives();
    void addDataSet(const Mount &mount);
    void readPools();
    QVector<DeviceNumber> devicesOf(const Mount &mount) const;
    QStringList disksOfTheSystem(const QVector<Mount> &mounts) const;

    QFile m_mountInfo;
    BlockDevices m_devices;
    QVector<Drive> m_drives;
    QHash<QByteArray, PoolSpace> m_pools; ///< By name.
};
