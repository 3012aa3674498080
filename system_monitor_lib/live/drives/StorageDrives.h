#pragma once

#include "system_monitor_lib/live/drives/DriveActivity.h"
#include "system_monitor_lib/live/drives/StorageSystem.h"

#include <QHash>
#include <QString>

#include <chrono>
#include <optional>
#include <vector>

/// One drive of the machine.
struct StorageDrive
{
    QString place; ///< Tells it from another one of the same model, such as "PhysicalDrive0".
    QString model; ///< Empty when it has no name.
    std::optional<double> celsius; ///< Absent while it sleeps and where it has no sensor.
    bool sleeps = false;
};

/// The drives that Windows numbers. A sleeping drive is not woken. A hard disk is asked for its
/// temperature only after it has been used, because the question would keep it from falling asleep;
/// a drive that does not tell whether it is one counts as one.
class StorageDrives
{
public:
    /// How long the last temperature of an unused disk stays valid.
    static constexpr std::chrono::nanoseconds idlePeriod = std::chrono::minutes(10);

    explicit StorageDrives(std::unique_ptr<StorageSystem> system);

    std::vector<StorageDrive> read(qint64 nowNs);
    /// What the drive has done so far, which the system tells without the drive. Nothing when it
    /// does not count.
    [[nodiscard]] std::optional<DriveCounters> counters(const QString &place) const;

private:
    struct Known
    {
        QString model;
        /// What the disk has served so far; empty when nobody counts it.
        QByteArray served;
        std::optional<double> celsius;
        qint64 readNs = 0;
    };

    /// Whether the drive has been used since the last call.
    static bool isUsed(OpenDrive &drive, Known &known, bool isNew);

    const std::unique_ptr<StorageSystem> m_system;
    QHash<QString, Known> m_known;
};
