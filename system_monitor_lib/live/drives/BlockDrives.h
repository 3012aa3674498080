#pragma once

#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/drives/DriveActivity.h"
#include "system_monitor_lib/live/files/PolledFile.h"

#include <memory>
#include <optional>
#include <vector>

/// A drive of /sys/block.
struct BlockDrive
{
    /// Its device's folder, links resolved.
    QString device;
    /// The kernel's name, such as "sda".
    QString name;
    QString model; ///< The kernel's name if it has no other.
    QString place; ///< Tells it from another one of that model, also after a restart.
    /// Sorting by this sorts drives by their slots, those on USB last.
    QString order;
    /// Since the last read(); absent at first.
    std::optional<DriveActivity> activity;
};

/// The drives of /sys/block that are devices of their own and hold something: no optical drives, no
/// empty card readers, no second parts of a memory card, nothing that lies on other drives. The
/// kernel itself counts what they serve, so that no drive is woken.
class BlockDrives
{
public:
    explicit BlockDrives(const MachineRoots &roots);
    ~BlockDrives();
    Q_DISABLE_COPY(BlockDrives)

    /// The drives that there are now.
    const std::vector<BlockDrive> &read(qint64 nowNs);

private:
    struct Counted
    {
        std::unique_ptr<PolledFile> stat;
        std::optional<DriveCounters> counters;
        qint64 timeNs = 0;
    };

    void look();
    [[nodiscard]] BlockDrive find(const QString &name) const;
    [[nodiscard]] bool isDrive(const QString &name) const;
    static void measure(BlockDrive &drive, Counted &counted, qint64 nowNs);

    const QString m_root;
    Pace m_listing{listingPeriod};
    std::vector<BlockDrive> m_drives;
    /// One for each drive.
    std::vector<Counted> m_counted;
};
