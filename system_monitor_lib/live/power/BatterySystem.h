#pragma once

#include "system_monitor_lib/live/power/BatteryAnswers.h"

#include <memory>
#include <vector>

/// The batteries of Windows, and its mains.
class BatterySystem
{
public:
    BatterySystem() = default;
    virtual ~BatterySystem() = default;
    Q_DISABLE_COPY(BatterySystem)

    /// The batteries that are in the machine, each with what its driver answered.
    virtual std::vector<BatteryAnswers> batteries() = 0;
    /// A SYSTEM_POWER_STATUS; empty when the system does not tell.
    virtual QByteArray powerStatus() = 0;
};

/// The batteries of this machine.
std::unique_ptr<BatterySystem> batterySystem();
