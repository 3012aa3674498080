#pragma once

#include <QStringList>

/// The active playback devices of a machine. Queries on Linux return the last report of the sound
/// server without waiting; on Windows each one asks the audio service and waits for its answer.
class AudioSource
{
public:
    virtual ~AudioSource() = default;

    /// The devices' names in the system's order; a device without a readable name is left out.
    virtual QStringList deviceNames() = 0;

    /// The master volume of the device at \a index, 0 to 100; -1 with a line in the plugin's log
    /// when it cannot be read.
    virtual float volume(int index) = 0;
};

/// The playback devices of this machine; lives as long as the process.
AudioSource &machineAudio();
