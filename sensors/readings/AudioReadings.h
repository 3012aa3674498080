#pragma once

#include <QList>
#include <QStringList>

class AudioSource;

/// The active playback devices and their master volumes.
struct AudioReadings
{
    QStringList names;
    QList<float> volumes;    ///< By name, 0 to 100; -1 where it cannot be read.
    int selectedVolume = -1; ///< Of the selected device, truncated; -1 when it cannot be read.
};

/// Queries every device of \a source, and separately the one at \a selectedIndex.
AudioReadings readAudio(AudioSource &source, int selectedIndex);
