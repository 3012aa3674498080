#pragma once

#include "system_monitor_lib/live/Collector.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/drives/BlockDrives.h"
#include "system_monitor_lib/live/files/Attribute.h"

#include <memory>
#include <vector>

/// "Drive Temperature" (whole °C) of each drive that the drivers nvme and drivetemp support, for
/// the drive query and the groups "Drive: NAME". A drive is named after its model, and also its
/// place if several have the same model. A rotating disk is only read after it has been used,
/// because only then it is known to be awake. These and all other drives are in the list of all
/// sensors with what they serve.
class DriveCollector : public Collector
{
public:
    static constexpr std::chrono::nanoseconds readingPeriod = std::chrono::seconds(30);
    /// How long the last temperature of an unused disk stays valid.
    static constexpr std::chrono::nanoseconds idlePeriod = std::chrono::minutes(10);

    explicit DriveCollector(const MachineRoots &roots);

    bool collect(qint64 nowNs, SensorTrees &trees) override;

private:
    struct Drive
    {
        QString directory;
        /// Its device's folder, links resolved.
        QString device;
        QString model;
        QString place;
        QString order;
        std::unique_ptr<Attribute> temperature;
        /// "suspended" while its bus is asleep.
        std::unique_ptr<Attribute> runtimeStatus;
        /// The I/O statistics of a rotating disk; null when the drive has no moving parts.
        std::unique_ptr<Attribute> served;
        QString lastServed;
        std::optional<double> celsius;
        qint64 readNs = 0;
    };

    [[nodiscard]] QString name(const Drive &drive) const;
    /// Of a drive that is not one of m_drives.
    [[nodiscard]] QString name(const BlockDrive &drive, const std::vector<BlockDrive> &all) const;
    void add(SensorTrees &trees, const std::vector<BlockDrive> &blocks) const;
    void look();
    static void read(Drive &drive, qint64 nowNs);

    const MachineRoots m_roots;
    Pace m_reading{readingPeriod};
    std::vector<Drive> m_drives;
    BlockDrives m_blocks;
};
