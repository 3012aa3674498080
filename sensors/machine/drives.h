#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct DriveSpace
{
    quint64 freeBytes = 0; ///< Free to this user; less than all free space if some is reserved.
    quint64 totalBytes = 0;
};

/// The fixed drives of a machine. The system usually answers queries from memory; if a drive hangs
/// or has to spin up, a query takes as long as the drive does.
class DriveSource
{
public:
    virtual ~DriveSource() = default;

    /// The root paths in the system's order; never those of removable or network drives.
    virtual QStringList fixedRoots() = 0;

    /// The volume label, which may be empty; nothing when the drive does not answer.
    virtual std::optional<QString> volumeName(const QString &root) = 0;

    /// Nothing when the drive does not answer.
    virtual std::optional<DriveSpace> space(const QString &root) = 0;
};

/// The drives of this machine; lives as long as the process.
DriveSource &machineDrives();
