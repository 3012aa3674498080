#pragma once

#include <QString>

#include <optional>
#include <vector>

/// One drive of the machine.
struct StorageDrive
{
    QString place; ///< Tells it from another one of the same model, such as "PhysicalDrive0".
    QString model; ///< Empty when it has no name.
    std::optional<double> celsius; ///< Absent while it sleeps and where it has no sensor.
};

/// The drives that Windows numbers. They are opened without any access right to their contents; a
/// sleeping drive is not woken.
std::vector<StorageDrive> storageDrives();
