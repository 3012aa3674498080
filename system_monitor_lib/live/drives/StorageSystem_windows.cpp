#include "system_monitor_lib/live/drives/StorageSystem.h"

#include <utility>

#include <windows.h>

#include <winioctl.h>

namespace {

STORAGE_PROPERTY_ID idOf(OpenDrive::Property property)
{
    switch (property) {
    case OpenDrive::Property::SeekPenalty:
        return StorageDeviceSeekPenaltyProperty;
    case OpenDrive::Property::Temperature:
        return StorageDeviceTemperatureProperty;
    case OpenDrive::Property::Device:
        break;
    }
    return StorageDeviceProperty;
}

class NumberedDrive : public OpenDrive
{
public:
    explicit NumberedDrive(HANDLE handle)
        : m_handle(handle)
    {
    }
    ~NumberedDrive() override { CloseHandle(m_handle); }
    Q_DISABLE_COPY(NumberedDrive)

    bool isAwake() override
    {
        BOOL on = TRUE;
        return !GetDevicePowerState(m_handle, &on) || on;
    }

    QByteArray property(Property property) override
    {
        STORAGE_PROPERTY_QUERY query = {};
        query.PropertyId = idOf(property);
        query.QueryType = PropertyStandardQuery;
        return control(IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof(query));
    }

    QByteArray performance() override { return control(IOCTL_DISK_PERFORMANCE, nullptr, 0); }

private:
    /// Empty when the drive does not know the request.
    QByteArray control(DWORD code, void *request, DWORD requestSize)
    {
        QByteArray answer(1024, '\0');
        DWORD size = 0;
        if (!DeviceIoControl(m_handle, code, request, requestSize, answer.data(),
                             static_cast<DWORD>(answer.size()), &size, nullptr))
            return {};
        answer.truncate(static_cast<int>(size));
        return answer;
    }

    HANDLE m_handle;
};

class NumberedDrives : public StorageSystem
{
public:
    std::unique_ptr<OpenDrive> open(const QString &place) override
    {
        const std::wstring path = (QStringLiteral("\\\\.\\") + place).toStdWString();
        // Asking for properties takes no access right, so it works for every user.
        HANDLE handle = CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
        if (handle == INVALID_HANDLE_VALUE)
            return nullptr;
        return std::make_unique<NumberedDrive>(handle);
    }
};

} // namespace

std::unique_ptr<StorageSystem> storageSystem()
{
    return std::make_unique<NumberedDrives>();
}
