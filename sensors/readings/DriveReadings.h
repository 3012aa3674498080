#pragma once

#include <QList>
#include <QStringList>

class DriveSource;

/// The fixed drives and their space. Sizes are whole GiB, rounded down.
///
/// A drive that does not answer stays in `roots` and is missing from the other lists, so that
/// their entries need not belong to the root at the same index.
struct DriveReadings
{
    QStringList roots;
    QStringList volumeNames;
    QList<int> freeGB;
    QList<int> freePercent;        ///< 0 to 100, rounded down; 0 for a drive without any space.
    unsigned allDrivesFreeGB = 0;  ///< Of the sum over the drives that answer.
    unsigned allDrivesTotalGB = 0; ///< Likewise.
};

/// Queries every fixed drive of \a source; for one that does not answer, a line is written to the
/// plugin's log.
DriveReadings readDrives(DriveSource &source);
