#pragma once

#include "qt/QtVersions.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVector>

/// The number of a device as the kernel writes it, "major:minor".
struct DeviceNumber
{
    unsigned major = 0;
    unsigned minor = 0;
};

inline bool operator==(DeviceNumber a, DeviceNumber b)
{
    return a.major == b.major && a.minor == b.minor;
}

inline HashValue qHash(DeviceNumber device, HashValue seed)
{
    return qHash(qMakePair(device.major, device.minor), seed);
}

/// 0:0, which is no device, for a text that is not of the form "8:1".
DeviceNumber parseDeviceNumber(const QByteArray &text);

/// One line of /proc/PID/mountinfo (proc(5)).
struct Mount
{
    unsigned id = 0;
    unsigned parent = 0; ///< The mount in which the mount point lies.
    DeviceNumber device;
    QByteArray root; ///< The folder of the file system that is mounted; "/" for the whole.
    QString mountPoint;
    QByteArray fileSystem;
    QByteArray source;
};

/// The mounts in \a text, in order; malformed lines are left out.
QVector<Mount> parseMountInfo(const QByteArray &text);
