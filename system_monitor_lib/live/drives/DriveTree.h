#pragma once

#include "system_monitor_lib/SensorTrees.h"

#include <optional>

/// Adds the drive \a name, with "Drive Temperature" where \a celsius is known. The readers of that
/// label take a number that is not whole for 0, so that it is rounded.
void addDrive(SensorTrees &trees, const QString &name, std::optional<double> celsius);
