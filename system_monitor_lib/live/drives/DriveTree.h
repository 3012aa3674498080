#pragma once

#include "system_monitor_lib/SensorTrees.h"

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
