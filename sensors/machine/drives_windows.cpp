#include "sensors/machine/DriveRoots.h"
#include "sensors/machine/drives.h"

#include <QByteArray>

#include <algorithm>
#include <array>

#include <windows.h>

namespace {

/// The texts of a list in which each ends with a zero.
QStringList texts(const char *list, std::size_t length)
{
    QStringList found;
    for (const QByteArray &text : QByteArray(list, static_cast<int>(length)).split('\0')) {
        if (!text.isEmpty())
            found.append(QString::fromLocal8Bit(text));
    }
    return found;
}

QStringList logicalDrives()
{
    constexpr DWORD most = 100;
    constexpr int lengthOfRoot = 4;
    // The function does not count the zero that ends the list.
    std::array<char, most + 1> list{};
    const DWORD length = GetLogicalDriveStringsA(most, list.data());
    // Where not all fit it lists none.
    if (length > most)
        return driveRoots(GetLogicalDrives(), most / lengthOfRoot);
    return texts(list.data(), length);
}

class LogicalDrives : public DriveSource
{
public:
    QStringList fixedRoots() override
    {
        QStringList roots = logicalDrives();
        roots.erase(std::remove_if(roots.begin(), roots.end(),
                                   [](const QString &root) {
                                       return GetDriveTypeA(root.toLocal8Bit().constData()) !=
                                              DRIVE_FIXED;
                                   }),
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
        if (!GetDiskFreeSpaceExA(root.toLocal8Bit().constData(), &freeToCaller, &total, &totalFree))
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
