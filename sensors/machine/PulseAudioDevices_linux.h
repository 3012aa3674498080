#pragma once

#include "sensors/machine/audio.h"

#include <memory>

class PulseAudioLink;

/// The active sinks of the user's PulseAudio or PipeWire server, the default one first. The first
/// query starts a thread of the sound library, which keeps one connection for the lifetime of this
/// object and reconnects after the server has gone. Queries return the last report of the server
/// without waiting.
class PulseAudioDevices : public AudioSource
{
public:
    PulseAudioDevices();
    ~PulseAudioDevices() override;
    Q_DISABLE_COPY(PulseAudioDevices)

    QStringList deviceNames() override;
    float volume(int index) override;

private:
    std::unique_ptr<PulseAudioLink> m_link;
};
