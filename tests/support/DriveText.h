#pragma once

#include <QStorageInfo>
#include <QString>

/// The space of the drive \a root as a disk key shows it.
inline QString spaceOf(const QString &root)
{
    const QStorageInfo drive(root);
    const qint64 freePercent = drive.bytesAvailable() * 100 / drive.bytesTotal();
    return QStringLiteral("%1% Used  %2G Free")
        .arg(100 - freePercent)
        .arg(drive.bytesAvailable() >> 30);
}
