#pragma once

#include "sensors/machine/MountInfo.h"

#include <QString>

/// What the kernel says of block devices in /sys (Documentation/ABI/stable/sysfs-block).
class BlockDevices
{
public:
    /// \a sysRoot stands for /sys, \a devRoot for /dev.
    BlockDevices(const QString &sysRoot, const QString &devRoot);

    /// Whether every disk that this device lies on is built in: not removable, not on USB unless
    /// that says so, not optical, not in memory, not on the network.
    bool isFixed(DeviceNumber device) const;

    /// The device behind a path below /dev; 0:0 when there is none.
    DeviceNumber deviceAt(const QByteArray &path) const;

    /// What /dev/disk/by-label has for \a device; empty when it has nothing.
    QString label(DeviceNumber device) const;

private:
    QString m_sysRoot;
    QString m_devRoot;
};
