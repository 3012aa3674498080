#include "plugin/DiskKey.h"

#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "values/ReadingText.h"

#include <algorithm>
#include <limits>

namespace {

QString spaceText(qint64 usedPercent, qint64 freeGB)
{
    return readingtext::integer(usedPercent, QStringLiteral("% Used")) + QStringLiteral("  ") +
           readingtext::integer(freeGB, QStringLiteral("G Free"));
}

QString named(const QString &name, const QString &text)
{
    return name + QStringLiteral("  ") + text;
}

QString allDrivesText(const normalAction &key)
{
    const qint64 freeGB = systemInfor::DisksFreeGB;
    const qint64 totalGB = systemInfor::DisksTotalGB;
    const qint64 usedPercent = totalGB == 0 ? 0 : (totalGB - freeGB) * 100 / totalGB;
    const QString text = spaceText(usedPercent, freeGB);
    return key.showVolumeName ? named(QStringLiteral("TotalDisks"), text) : text;
}

} // namespace

QString diskkey::driveText(const normalAction &key)
{
    const int index = key.driveIndex;
    // The lists differ in length while a drive does not answer.
    const bool isKnown = index >= 0 && index < systemInfor::DriveFreePercent.size();
    const QString text = spaceText(isKnown ? 100 - systemInfor::DriveFreePercent.at(index) : 0,
                                   systemInfor::DriveFreeGB.value(index));
    // Compatibility: root-for-name
    return key.showVolumeName ? named(systemInfor::DriveRoots.value(index), text) : text;
}

QString diskkey::text(const normalAction &key)
{
    return key.showsAllDrives() ? allDrivesText(key) : driveText(key);
}

int diskkey::chosenDrive(const normalAction &key)
{
    return key.volumeNameItem.toInt();
}

int diskkey::nextDrive(int index)
{
    const qint64 count = systemInfor::DriveRoots.size();
    const qint64 next = std::max(qint64(index) + 1, qint64(0));
    return count == 0 ? 0 : static_cast<int>(next % count);
}

std::chrono::milliseconds diskkey::switchInterval(int seconds)
{
    constexpr int longest = std::numeric_limits<int>::max() / 1000;
    return std::chrono::seconds(std::clamp(seconds, 1, longest));
}
