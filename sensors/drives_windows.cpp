#include "sensors/drives.h"

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

/// What GetLogicalDriveStringsA would list if it did not leave out all drives when not all fit.
QStringList firstDriveLetters(std::size_t most)
{
    const DWORD inUse = GetLogicalDrives();
    QStringList roots;
    for (char letter = 'A'; letter <= 'Z' && static_cast<std::size_t>(roots.size()) < most;
         ++letter) {
        if ((inUse >> static_cast<unsigned>(letter - 'A') & 1U) != 0)
            roots.append(QLatin1Char(letter) + QStringLiteral(":\\"));
    }
    return roots;
}

QStringList logicalDrives()
{
    constexpr std::size_t lengthOfRoot = 4;
    std::array<char, 100> list{};
    const DWORD length = GetLogicalDriveStringsA(static_cast<DWORD>(list.size()), list.data());
    if (length > list.size())
        return firstDriveLetters(list.size() / lengthOfRoot);
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
        std::array<char, 260> name{};
        std::array<char, 260> fileSystem{};
        if (!GetVolumeInformationA(root.toLocal8Bit().constData(), name.data(),
                                   static_cast<DWORD>(name.size()), nullptr, nullptr, nullptr,
                                   fileSystem.data(), static_cast<DWORD>(fileSystem.size())))
            return std::nullopt;
        return QString::fromLocal8Bit(name.data());
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
