#pragma once

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/drives/DriveActivity.h"

#include <optional>

/// A drive of the trees.
struct DriveName
{
    QString key;   ///< What it is called in the trees.
    QString model; ///< What its maker calls it.
    QString place; ///< Tells it from another one of that model.
};

/// Adds the drive \a name, with "Drive Temperature" if \a celsius is known. It is rounded, because
/// a temperature that is not a whole number would be read as 0.
void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius);

/// The same with what the drive serves, for the list of all sensors only.
void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius,
              const std::optional<DriveActivity> &activity);

/// Adds a drive without a temperature to the list of all sensors only.
void addListedDrive(SensorTrees &trees, const DriveName &name,
                    const std::optional<DriveActivity> &activity);
