#include "system_monitor_lib/live/drives/StorageDrives.h"

#include "system_monitor_lib/live/drives/StorageAnswers.h"

#include <memory>

#include <windows.h>

#include <winioctl.h>

namespace {

struct CloseHandleOf
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

using Handle = std::unique_ptr<HANDLE, CloseHandleOf>;

constexpr int mostDrives = 64;

Handle openDrive(const QString &place)
{
    const std::wstring path = (QStringLiteral("\\\\.\\") + place).toStdWString();
    // Asking for properties takes no access right, so it works for every user.
    HANDLE handle = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, 0, nullptr);
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

bool isAwake(HANDLE drive)
{
    BOOL on = TRUE;
    return !GetDevicePowerState(drive, &on) || on;
}

/// Empty when the drive does not know the property.
QByteArray property(HANDLE drive, STORAGE_PROPERTY_ID id)
{
    STORAGE_PROPERTY_QUERY query = {};
    query.PropertyId = id;
    query.QueryType = PropertyStandardQuery;
    QByteArray answer(1024, '\0');
    DWORD size = 0;
    if (!DeviceIoControl(drive, IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof(query), answer.data(),
                         static_cast<DWORD>(answer.size()), &size, nullptr))
        return {};
    answer.truncate(static_cast<int>(size));
    return answer;
}

} // namespace

std::vector<StorageDrive> storageDrives()
{
    std::vector<StorageDrive> drives;
    for (int number = 0; number < mostDrives; ++number) {
        StorageDrive drive;
        drive.place = QStringLiteral("PhysicalDrive%1").arg(number);
        const Handle handle = openDrive(drive.place);
        if (!handle)
            continue;
        drive.model = parseDriveModel(property(handle.get(), StorageDeviceProperty));
        if (isAwake(handle.get()))
            drive.celsius =
                parseDriveCelsius(property(handle.get(), StorageDeviceTemperatureProperty));
        drives.push_back(std::move(drive));
    }
    return drives;
}
