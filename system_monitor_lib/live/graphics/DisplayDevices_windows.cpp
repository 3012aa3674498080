#include "system_monitor_lib/live/graphics/DisplayDevices.h"

#include <array>
#include <optional>

#include <windows.h>

#include <cfgmgr32.h>
#include <setupapi.h>

namespace {

/// GUID_DEVCLASS_DISPLAY of devguid.h.
constexpr GUID displayClass = {
    0x4d36e968, 0xe325, 0x11ce, {0xbf, 0xc1, 0x08, 0x00, 0x2b, 0xe1, 0x03, 0x18}};

struct ListDestroyer
{
    using pointer = HDEVINFO;
    void operator()(HDEVINFO list) const { SetupDiDestroyDeviceInfoList(list); }
};

using DeviceList = std::unique_ptr<HDEVINFO, ListDestroyer>;

std::optional<DWORD> numberOf(HDEVINFO list, SP_DEVINFO_DATA &device, DWORD property)
{
    DWORD number = 0;
    const bool known = SetupDiGetDeviceRegistryPropertyW(list, &device, property, nullptr,
                                                         reinterpret_cast<BYTE *>(&number),
                                                         sizeof(number), nullptr);
    return known ? std::optional(number) : std::nullopt;
}

QString descriptionOf(HDEVINFO list, SP_DEVINFO_DATA &device)
{
    std::array<wchar_t, 256> text{};
    // The last one stays the end of the text.
    const bool known = SetupDiGetDeviceRegistryPropertyW(
        list, &device, SPDRP_DEVICEDESC, nullptr, reinterpret_cast<BYTE *>(text.data()),
        static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t)), nullptr);
    return known ? QString::fromWCharArray(text.data()).simplified() : QString();
}

QString instanceOf(HDEVINFO list, SP_DEVINFO_DATA &device)
{
    std::array<wchar_t, MAX_DEVICE_ID_LEN + 1> id{};
    const bool known = SetupDiGetDeviceInstanceIdW(list, &device, id.data(),
                                                   static_cast<DWORD>(id.size()), nullptr);
    return known ? QString::fromWCharArray(id.data()) : QString();
}

class DeviceTree : public DisplayDevices
{
public:
    std::vector<DisplayDevice> list() override
    {
        HDEVINFO handle = SetupDiGetClassDevsW(&displayClass, L"PCI", nullptr, DIGCF_PRESENT);
        if (handle == INVALID_HANDLE_VALUE)
            return {};
        const DeviceList devices(handle);
        std::vector<DisplayDevice> found;
        SP_DEVINFO_DATA device = {};
        device.cbSize = sizeof(device);
        for (DWORD index = 0; SetupDiEnumDeviceInfo(handle, index, &device); ++index) {
            const auto bus = numberOf(handle, device, SPDRP_BUSNUMBER);
            const auto address = numberOf(handle, device, SPDRP_ADDRESS);
            if (bus && address)
                found.push_back({instanceOf(handle, device), descriptionOf(handle, device),
                                 pciAddress(*bus, *address)});
        }
        return found;
    }

    bool sleeps(const QString &instance) override
    {
        std::wstring id = instance.toStdWString();
        DEVINST device = 0;
        CM_POWER_DATA power = {};
        ULONG size = sizeof(power);
        return CM_Locate_DevNodeW(&device, id.data(), CM_LOCATE_DEVNODE_NORMAL) == CR_SUCCESS &&
               CM_Get_DevNode_Registry_PropertyW(device, CM_DRP_DEVICE_POWER_DATA, nullptr, &power,
                                                 &size, 0) == CR_SUCCESS &&
               power.PD_MostRecentPowerState == PowerDeviceD3;
    }
};

} // namespace

std::unique_ptr<DisplayDevices> displayDevices()
{
    return std::make_unique<DeviceTree>();
}
