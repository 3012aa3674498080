#include "system_monitor_lib/live/graphics/NvidiaDevices.h"

#include <array>
#include <memory>

#include <windows.h>

#include <cfgmgr32.h>
#include <devguid.h>
#include <setupapi.h>

namespace {

struct ListDestroyer
{
    using pointer = HDEVINFO;
    void operator()(HDEVINFO list) const { SetupDiDestroyDeviceInfoList(list); }
};

using DeviceList = std::unique_ptr<HDEVINFO, ListDestroyer>;

DeviceList displayAdapters()
{
    HDEVINFO list = SetupDiGetClassDevsW(&GUID_DEVCLASS_DISPLAY, L"PCI", nullptr, DIGCF_PRESENT);
    return DeviceList(list == INVALID_HANDLE_VALUE ? nullptr : list);
}

bool isOfNvidia(HDEVINFO list, SP_DEVINFO_DATA &device)
{
    std::array<wchar_t, 200> id{};
    if (!SetupDiGetDeviceInstanceIdW(list, &device, id.data(), static_cast<DWORD>(id.size()),
                                     nullptr))
        return false;
    return QString::fromWCharArray(id.data()).startsWith(QLatin1String("PCI\\VEN_10DE&"),
                                                         Qt::CaseInsensitive);
}

bool sleeps(HDEVINFO list, SP_DEVINFO_DATA &device)
{
    CM_POWER_DATA power = {};
    const bool known =
        SetupDiGetDeviceRegistryPropertyW(list, &device, SPDRP_DEVICE_POWER_DATA, nullptr,
                                          reinterpret_cast<BYTE *>(&power), sizeof(power), nullptr);
    return known && power.PD_MostRecentPowerState == PowerDeviceD3;
}

/// Whether there are such devices and all of them sleep.
bool allSleep()
{
    const DeviceList list = displayAdapters();
    if (!list)
        return false;
    bool found = false;
    SP_DEVINFO_DATA device = {};
    device.cbSize = sizeof(device);
    for (DWORD index = 0; SetupDiEnumDeviceInfo(list.get(), index, &device); ++index) {
        if (!isOfNvidia(list.get(), device))
            continue;
        if (!sleeps(list.get(), device))
            return false;
        found = true;
    }
    return found;
}

} // namespace

class NvidiaDevices::Private
{
};

NvidiaDevices::NvidiaDevices(const MachineRoots & /*roots*/) {}

NvidiaDevices::~NvidiaDevices() = default;

// The system does not report whether a device is waiting for its last user.
std::vector<NvidiaDevice> NvidiaDevices::look(qint64 /*nowNs*/)
{
    return {{QString(), QString(), allSleep(), std::nullopt}};
}
