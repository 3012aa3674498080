#include "sensors/machine/PulseAudioDevices_linux.h"

#include "sensors/machine/PulseAudioLink_linux.h"

PulseAudioDevices::PulseAudioDevices()
    : m_link(std::make_unique<PulseAudioLink>())
{
}

PulseAudioDevices::~PulseAudioDevices() = default;

QStringList PulseAudioDevices::deviceNames()
{
    QStringList names;
    const PlaybackState state = m_link->state();
    for (const PlaybackDevice &device : state.devices)
        names.append(device.name);
    return names;
}

float PulseAudioDevices::volume(int index)
{
    return volumeAt(m_link->state(), index);
}
