#include "system_monitor_lib/live/power/BatterySystem.h"

#include <windows.h>

#include <poclass.h>
#include <setupapi.h>

namespace {

/// GUID_DEVICE_BATTERY of poclass.h.
constexpr GUID batteryInterface = {
    0x72631e54, 0x78a4, 0x11d0, {0xbc, 0xf7, 0x00, 0xaa, 0x00, 0xb7, 0xb3, 0x2a}};

struct ListDestroyer
{
    using pointer = HDEVINFO;
    void operator()(HDEVINFO list) const { SetupDiDestroyDeviceInfoList(list); }
};

using DeviceList = std::unique_ptr<HDEVINFO, ListDestroyer>;

struct Closer
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<HANDLE, Closer>;

/// The name under which the battery is opened; empty when there is none.
std::wstring pathOf(HDEVINFO list, SP_DEVICE_INTERFACE_DATA &entry)
{
    DWORD size = 0;
    SetupDiGetDeviceInterfaceDetailW(list, &entry, nullptr, 0, &size, nullptr);
    if (size < sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W))
        return {};
    std::vector<SP_DEVICE_INTERFACE_DETAIL_DATA_W> memory(
        size / sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W) + 1);
    memory.front().cbSize = sizeof(SP_DEVICE_INTERFACE_DETAIL_DATA_W);
    if (!SetupDiGetDeviceInterfaceDetailW(list, &entry, memory.data(), size, nullptr, nullptr))
        return {};
    return memory.front().DevicePath;
}

/// Empty when the driver does not answer.
template <typename Request>
QByteArray control(HANDLE battery, DWORD code, Request request)
{
    QByteArray answer(512, '\0');
    DWORD size = 0;
    if (!DeviceIoControl(battery, code, &request, sizeof(request), answer.data(),
                         static_cast<DWORD>(answer.size()), &size, nullptr))
        return {};
    answer.truncate(static_cast<int>(size));
    return answer;
}

/// 0 when the bay is empty.
ULONG tagOf(HANDLE battery)
{
    const ULONG doNotWait = 0;
    const QByteArray tag = control(battery, IOCTL_BATTERY_QUERY_TAG, doNotWait);
    ULONG number = BATTERY_TAG_INVALID;
    if (tag.size() == sizeof(number))
        memcpy(&number, tag.constData(), sizeof(number));
    return number;
}

QByteArray information(HANDLE battery, ULONG tag, BATTERY_QUERY_INFORMATION_LEVEL level)
{
    BATTERY_QUERY_INFORMATION query = {};
    query.BatteryTag = tag;
    query.InformationLevel = level;
    return control(battery, IOCTL_BATTERY_QUERY_INFORMATION, query);
}

BatteryAnswers answersOf(HANDLE battery, ULONG tag)
{
    BATTERY_WAIT_STATUS now = {};
    now.BatteryTag = tag;
    return {information(battery, tag, BatteryDeviceName),
            information(battery, tag, BatteryInformation),
            control(battery, IOCTL_BATTERY_QUERY_STATUS, now),
            information(battery, tag, BatteryEstimatedTime)};
}

class WindowsBatteries : public BatterySystem
{
public:
    std::vector<BatteryAnswers> batteries() override
    {
        constexpr DWORD most = 16;
        HDEVINFO handle = SetupDiGetClassDevsW(&batteryInterface, nullptr, nullptr,
                                               DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
        if (handle == INVALID_HANDLE_VALUE)
            return {};
        const DeviceList devices(handle);
        std::vector<BatteryAnswers> found;
        for (DWORD index = 0; index < most; ++index) {
            SP_DEVICE_INTERFACE_DATA entry = {};
            entry.cbSize = sizeof(entry);
            if (!SetupDiEnumDeviceInterfaces(handle, nullptr, &batteryInterface, index, &entry))
                break;
            const std::wstring path = pathOf(handle, entry);
            HANDLE opened =
                CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
            if (opened == INVALID_HANDLE_VALUE)
                continue;
            const Handle battery(opened);
            const ULONG tag = tagOf(opened);
            if (tag != BATTERY_TAG_INVALID)
                found.push_back(answersOf(opened, tag));
        }
        return found;
    }

    QByteArray powerStatus() override
    {
        SYSTEM_POWER_STATUS status = {};
        if (!GetSystemPowerStatus(&status))
            return {};
        return {reinterpret_cast<const char *>(&status), sizeof(status)};
    }
};

} // namespace

std::unique_ptr<BatterySystem> batterySystem()
{
    return std::make_unique<WindowsBatteries>();
}
