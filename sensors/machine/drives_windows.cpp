#include "sensors/machine/DriveRoots.h"
#include "sensors/machine/drives.h"

#include <QByteArray>

#include <algorithm>
#include <array>

#include <windows.h>

namespace {

QStringList logicalDrives()
{
    // "A:\" to "Z:\", each with a zero, and the zero that ends the list.
    std::array<char, 26 * 4 + 1> list{};
    // The zero at the end is not counted.
    const DWORD length = GetLogicalDriveStringsA(static_cast<DWORD>(list.size()), list.data());
    return driveRoots(QByteArray(list.data(), static_cast<int>(length)));
}

bool isFixed(const QString &root)
{
    return GetDriveTypeW(root.toStdWString().c_str()) == DRIVE_FIXED;
}

class LogicalDrives : public DriveSource
{
public:
    QStringList fixedRoots() override
    {
        QStringList roots = logicalDrives();
        roots.erase(std::remove_if(roots.begin(), roots.end(),
                                   [](const QString &root) { return !isFixed(root); }),
                    roots.end());
        return roots;
    }

    std::optional<QString> volumeName(const QString &root) override
    {
        std::array<wchar_t, 260> name{};
        std::array<wchar_t, 260> fileSystem{};
        if (!GetVolumeInformationW(root.toStdWString().c_str(), name.data(),
                                   static_cast<DWORD>(name.size()), nullptr, nullptr, nullptr,
                                   fileSystem.data(), static_cast<DWORD>(fileSystem.size())))
            return std::nullopt;
        return QString::fromWCharArray(name.data());
    }

    std::optional<DriveSpace> space(const QString &root) override
    {
        ULARGE_INTEGER freeToCaller = {};
        ULARGE_INTEGER total = {};
        ULARGE_INTEGER totalFree = {};
        if (!GetDiskFreeSpaceExW(root.toStdWString().c_str(), &freeToCaller, &total, &totalFree))
            return std::nullopt;
        return DriveSpace{freeToCaller.QuadPart, total.QuadPart};
    }
};

} // namespace

DriveSource &machineDrives()
{
    static LogicalDrives drives;
    return drives;
}
