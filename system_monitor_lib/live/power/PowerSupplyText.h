#pragma once

#include "system_monitor_lib/live/power/BatteryState.h"

#include <string_view>

/// An entry of /sys/class/power_supply.
struct PowerSupply
{
    enum class Kind { Battery, Mains, Other };

    Kind kind = Kind::Other;
    /// Of mains: whether it supplies the machine.
    bool isOnline = false;
    BatteryState battery;
};

/// Parses the uevent file of an entry (Documentation/power/power_supply_class.rst in the kernel),
/// which has all its properties: amounts are in millionths. Batteries of mice and other devices are
/// not the machine's, a battery that is not present is none: Other.
PowerSupply parsePowerSupply(std::string_view text);
