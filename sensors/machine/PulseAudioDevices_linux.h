#pragma once

#include "sensors/machine/audio.h"

#include <memory>

class PulseAudioLink;

/// The sinks of the user's PulseAudio or PipeWire server that can be heard, the default one first.
/// The first query for anything starts a thread of the sound library's, which keeps one connection
/// for as long as this object lives and comes back by itself after the server has gone. Queries
/// read what the server said last and wait for nothing.
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
