#pragma once

#include <QJsonObject>
#include <QStringList>

#include <optional>

/// What a drive has served since it was found.
struct DriveCounters
{
    quint64 readBytes = 0;
    quint64 writtenBytes = 0;
    /// Finished reads and writes.
    quint64 requests = 0;
    /// The sums of the times that the reads and the writes took, in nanoseconds.
    quint64 readNs = 0;
    quint64 writeNs = 0;
    /// The time during which it had something to do.
    quint64 busyNs = 0;
    /// The number at which the times wrap around; 0 if they never do.
    quint64 timesWrapAtNs = 0;
};

/// What a drive did between two samples.
struct DriveActivity
{
    double readBytesPerSecond = 0;
    double writtenBytesPerSecond = 0;
    double busyPercent = 0; ///< 0 to 100.
    /// The mean time of the requests; 0 when there were none.
    double requestMs = 0;
};

/// Nothing when the counters started anew or the interval is not usable.
std::optional<DriveActivity> driveActivity(const DriveCounters &previous,
                                           const DriveCounters &current, qint64 intervalNs);

/// "Drive Read Rate", "Drive Write Rate" (MB/s of 1024 KiB), "Drive Busy" (%) and "Drive Request
/// Time" (ms).
QJsonObject driveActivityLabels(const DriveActivity &activity);
QStringList driveActivityLabelNames();
