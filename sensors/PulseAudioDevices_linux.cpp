#include "sensors/PulseAudioDevices_linux.h"

#include "SDK/Logger/Logger.h"
#include "sensors/PulseAudioLink_linux.h"

PulseAudioDevices::PulseAudioDevices()
    : m_link(std::make_unique<PulseAudioLink>())
{
}

PulseAudioDevices::~PulseAudioDevices() = default;

QStringList PulseAudioDevices::deviceNames()
{
    QStringList names;
    const PulseAudioLink::State state = m_link->state();
    for (const PlaybackDevice &device : state.devices)
        names.append(device.name);
    return names;
}

float PulseAudioDevices::volume(int index)
{
    constexpr float unknown = -1.0F;
    const PulseAudioLink::State state = m_link->state();
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
