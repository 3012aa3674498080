#include "sensors/readings/DriveReadings.h"

#include "SDK/Logger/Logger.h"
#include "sensors/machine/drives.h"

#include <algorithm>
#include <limits>

namespace {

template <typename Integer>
Integer wholeGB(quint64 bytes)
{
    constexpr quint64 most = std::numeric_limits<Integer>::max();
    return static_cast<Integer>(std::min(bytes >> 30, most));
}

int freePercent(const DriveSpace &space)
{
    if (space.totalBytes == 0)
        return 0;
    // For the largest drives only the upper bits are used, so that multiplying by 100 does not
    // overflow.
    const int shift = space.totalBytes > std::numeric_limits<quint64>::max() / 100 ? 7 : 0;
    const quint64 freeBytes = std::min(space.freeBytes, space.totalBytes) >> shift;
    return static_cast<int>(freeBytes * 100 / (space.totalBytes >> shift));
}

} // namespace

DriveReadings readDrives(DriveSource &source)
{
    DriveReadings readings;
    readings.roots = source.fixedRoots();
    DriveSpace sum;
    for (const QString &root : qAsConst(readings.roots)) {
        const std::optional<QString> volumeName = source.volumeName(root);
        if (!volumeName) {
            // Compatibility: lists-out-of-line
            LogDebug(labelled("Failed to get information of drive ", root));
            continue;
        }
        const std::optional<DriveSpace> space = source.space(root);
        if (!space) {
            LogDebug(labelled("Failed to get disk space info of drive ", root));
            continue;
        }
        readings.volumeNames.append(*volumeName);
        readings.freeGB.append(wholeGB<int>(space->freeBytes));
        readings.freePercent.append(freePercent(*space));
        sum.freeBytes += space->freeBytes;
        sum.totalBytes += space->totalBytes;
    }
    readings.allDrivesFreeGB = wholeGB<unsigned>(sum.freeBytes);
    readings.allDrivesTotalGB = wholeGB<unsigned>(sum.totalBytes);
    return readings;
}
