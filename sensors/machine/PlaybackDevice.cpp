#include "sensors/machine/PlaybackDevice.h"

#include "SDK/Logger/Logger.h"

#include <algorithm>
#include <iterator>

float volumeAt(const PlaybackState &state, int index)
{
    constexpr float unknown = -1.0F;
    if (!state.connected) {
        LogDebug(QStringLiteral("AudioERR: Unable to create audio device enumerator"));
        return unknown;
    }
    if (!state.listed) {
        LogDebug(QStringLiteral("AudioERR: Unable to get audio device collection"));
        return unknown;
    }
    if (index < 0 || index >= state.devices.size()) {
        LogDebug(QStringLiteral("AudioERR: Invalid device index"));
        return unknown;
    }
    const float volume = state.devices.at(index).volume;
    if (volume < 0)
        LogDebug(QStringLiteral("AudioERR: Unable to retrieve the volume"));
    return volume;
}

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
