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

/// Adds the drive \a name, with "Drive Temperature" where \a celsius is known. The readers of that
/// label take a number that is not whole for 0, so that it is rounded.
void addDrive(SensorTrees &trees, const DriveName &name, std::optional<double> celsius);
