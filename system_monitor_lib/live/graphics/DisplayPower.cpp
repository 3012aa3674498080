#include "system_monitor_lib/live/graphics/DisplayPower.h"

#include <algorithm>

DisplayPower::DisplayPower(std::unique_ptr<DisplayDevices> devices)
    : m_devices(std::move(devices))
{
}

const std::vector<DisplayDevice> &DisplayPower::look(qint64 nowNs)
{
    if (m_listing.isDue(nowNs))
        m_found = m_devices->list();
    return m_found;
}

bool DisplayPower::sleeps(const QString &address, qint64 nowNs)
{
    const std::vector<DisplayDevice> &devices = look(nowNs);
    return std::any_of(devices.begin(), devices.end(), [&](const DisplayDevice &device) {
        return isSamePlace(device.address, address) && m_devices->sleeps(device.instance);
    });
}
