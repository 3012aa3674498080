#include "system_monitor_lib/recorded/FileStamp.h"

#include <QDir>

#include <windows.h>

namespace {

quint64 joined(DWORD high, DWORD low)
{
    return (quint64{high} << 32U) | low;
}

/// FILETIME counts 100 ns since 1601.
qint64 nanosecondsSince1970(const FILETIME &time)
{
    constexpr qint64 ticksFrom1601To1970 = 116'444'736'000'000'000;
    const auto ticks = static_cast<qint64>(joined(time.dwHighDateTime, time.dwLowDateTime));
    return (ticks - ticksFrom1601To1970) * 100;
}

} // namespace

FileStamp fileStamp(const QString &path)
{
    const std::wstring nativePath = QDir::toNativeSeparators(path).toStdWString();
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (GetFileAttributesExW(nativePath.c_str(), GetFileExInfoStandard, &data) == 0)
        return {};
    constexpr DWORD notRegular = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    FileStamp stamp;
    stamp.kind = (data.dwFileAttributes & notRegular) == 0 ? FileStamp::Kind::Regular
                                                           : FileStamp::Kind::Other;
    stamp.size = static_cast<qint64>(joined(data.nFileSizeHigh, data.nFileSizeLow));
    stamp.identity = joined(data.ftCreationTime.dwHighDateTime, data.ftCreationTime.dwLowDateTime);
    stamp.modifiedNs = nanosecondsSince1970(data.ftLastWriteTime);
    stamp.changedNs = stamp.modifiedNs;
    return stamp;
}
