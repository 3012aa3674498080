#pragma once

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/graphics/DisplayDevices.h"

/// Which graphics devices are asleep. The list of devices is read every 10 seconds, and only if
/// somebody asks; the power state of a device is read each time.
class DisplayPower
{
public:
    explicit DisplayPower(std::unique_ptr<DisplayDevices> devices);

    const std::vector<DisplayDevice> &look(qint64 nowNs);
    /// Whether the device at \a address is asleep. False when there is none.
    bool sleeps(const QString &address, qint64 nowNs);

private:
    const std::unique_ptr<DisplayDevices> m_devices;
    Pace m_listing{listingPeriod};
    std::vector<DisplayDevice> m_found;
};
