#include "sensors/PlaybackDevice.h"

#include <algorithm>
#include <iterator>

QVector<PlaybackDevice> activeDevices(const QVector<PlaybackDevice> &all,
                                      const QByteArray &defaultId)
{
    QVector<PlaybackDevice> devices;
    std::copy_if(all.begin(), all.end(), std::back_inserter(devices),
                 [](const PlaybackDevice &each) { return each.active && !each.name.isEmpty(); });
    std::stable_partition(devices.begin(), devices.end(), [&defaultId](const PlaybackDevice &each) {
        return each.id == defaultId;
    });
    return devices;
}
