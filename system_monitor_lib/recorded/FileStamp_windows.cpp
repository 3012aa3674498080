#include "system_monitor_lib/recorded/FileStamp_windows.h"

#include <QDir>

#include <windows.h>

#include <algorithm>
#include <limits>

namespace {

quint64 joined(DWORD high, DWORD low)
{
    return (quint64{high} << 32U) | low;
}

qint64 nanoseconds(const FILETIME &time)
{
    return nanosecondsSince1970(joined(time.dwHighDateTime, time.dwLowDateTime));
}

FileStamp stampOf(HANDLE file)
{
    FileStamp stamp;
    stamp.kind = FileStamp::Kind::Other;
    BY_HANDLE_FILE_INFORMATION data = {};
    // Devices and pipes have no such information.
    if (GetFileType(file) != FILE_TYPE_DISK || !GetFileInformationByHandle(file, &data))
        return stamp;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        stamp.kind = FileStamp::Kind::Regular;
    stamp.size = static_cast<qint64>(joined(data.nFileSizeHigh, data.nFileSizeLow));
    stamp.identity = joined(data.nFileIndexHigh, data.nFileIndexLow);
    stamp.modifiedNs = nanoseconds(data.ftLastWriteTime);
    stamp.changedNs = stamp.modifiedNs;
    return stamp;
}

} // namespace

qint64 nanosecondsSince1970(quint64 ticksSince1601)
{
    constexpr qint64 perTick = 100;
    constexpr quint64 year1970 = 116'444'736'000'000'000;
    constexpr quint64 mostTicks = std::numeric_limits<qint64>::max() / perTick;
    const quint64 ticks = std::clamp(ticksSince1601, year1970 - mostTicks, year1970 + mostTicks);
    return (static_cast<qint64>(ticks) - static_cast<qint64>(year1970)) * perTick;
}

FileStamp fileStamp(const QString &path)
{
    const std::wstring nativePath = QDir::toNativeSeparators(path).toStdWString();
    // A path would give information about a link, an open file gives it about the target.
    constexpr DWORD everything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    HANDLE file = CreateFileW(nativePath.c_str(), FILE_READ_ATTRIBUTES, everything, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    const FileStamp stamp = stampOf(file);
    CloseHandle(file);
    return stamp;
}
