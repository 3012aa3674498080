#pragma once

#include "sensors/machine/MountInfo.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// What the kernel reports about block devices in /sys (Documentation/ABI/stable/sysfs-block).
class BlockDevices
{
public:
    /// \a sysRoot stands for /sys, \a devRoot for /dev.
    BlockDevices(const QString &sysRoot, const QString &devRoot);

    /// The disks that a device is stored on, as folders in /sys; none if one of them cannot be
    /// determined or is on the network (iSCSI, nbd, rbd, drbd).
    QStringList disksOf(DeviceNumber device) const;

    /// Whether every disk of the device is fixed, whatever its bus: not a stick or a card (except
    /// one of \a systemDisks), not optical, not in memory, not on the network.
    bool isFixed(DeviceNumber device, const QStringList &systemDisks) const;

    /// All devices of the btrfs file system that \a device is part of; at least \a device.
    QVector<DeviceNumber> membersOfBtrfs(DeviceNumber device) const;

    /// The device behind a path below /dev; 0:0 when there is none.
    DeviceNumber deviceAt(const QByteArray &path) const;

    /// The label of \a device in /dev/disk/by-label; empty when it has none.
    QString label(DeviceNumber device) const;

private:
    QString m_sysRoot;
    QString m_devRoot;
};
