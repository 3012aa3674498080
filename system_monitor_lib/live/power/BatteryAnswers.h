#pragma once

#include "system_monitor_lib/live/power/BatteryState.h"

#include <QByteArray>
#include <QString>

/// What Windows and the driver of a battery answer, with the layouts documented for poclass.h and
/// winbase.h. An answer may be missing, truncated or contain anything.
struct BatteryAnswers
{
    QByteArray name;        ///< BatteryDeviceName: a text in UTF-16.
    QByteArray information; ///< A BATTERY_INFORMATION.
    QByteArray status;      ///< A BATTERY_STATUS.
    QByteArray time;        ///< BatteryEstimatedTime: seconds.
};

/// The maker's name; empty when there is none.
QString parseBatteryName(const BatteryAnswers &answers);

/// What the battery does not tell, and what is implausible, is absent. A battery that counts in
/// units of its own (BATTERY_CAPACITY_RELATIVE) has no power.
BatteryState parseBattery(const BatteryAnswers &answers);

/// Whether the machine is plugged in, from a SYSTEM_POWER_STATUS. Nothing when that is unknown, and
/// without a battery, where it would always be.
std::optional<bool> parseMains(const QByteArray &answer);
