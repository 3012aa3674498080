#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <QStringList>

#include <optional>
#include <vector>

class QRegularExpression;

/// A chip of /sys/class/hwmon (Documentation/hwmon/sysfs-interface in the kernel).
struct HwmonChip
{
    /// The name that its driver gives it.
    QString name;
    /// Its folder with every link resolved, so that another chip that later gets the same number
    /// has another folder.
    QString directory;
};

/// The chips that exist now.
std::vector<HwmonChip> hwmonChips(const MachineRoots &roots);

/// The path of the input of the temperature whose label is \a label; empty when there is none.
QString temperatureInput(const HwmonChip &chip, const QString &label);

/// The paths of the inputs of all temperatures whose label \a isMeant matches.
QStringList temperatureInputs(const HwmonChip &chip, const QRegularExpression &isMeant);
