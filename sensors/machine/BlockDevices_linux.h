#pragma once

#include "sensors/machine/MountInfo.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// What the kernel says of block devices in /sys (Documentation/ABI/stable/sysfs-block).
class BlockDevices
{
public:
    /// \a sysRoot stands for /sys, \a devRoot for /dev.
    BlockDevices(const QString &sysRoot, const QString &devRoot);

    /// The disks that a device lies on, as folders in /sys; none when one cannot be told or is on
    /// the network (iSCSI, nbd, rbd, drbd).
    QStringList disksOf(DeviceNumber device) const;

    /// Whether every disk of the device is fixed, on whichever bus: not a stick or a card, unless
    /// it is one of \a systemDisks, not optical, not in memory, not on the network.
    bool isFixed(DeviceNumber device, const QStringList &systemDisks) const;

    /// All devices of the btrfs file system that \a device is part of; at least \a device.
    QVector<DeviceNumber> membersOfBtrfs(DeviceNumber device) const;

    /// The device behind a path below /dev; 0:0 when there is none.
    DeviceNumber deviceAt(const QByteArray &path) const;

    /// What /dev/disk/by-label has for \a device; empty when it has nothing.
    QString label(DeviceNumber device) const;

private:
    QString m_sysRoot;
    QString m_devRoot;
};
