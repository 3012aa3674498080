#include "sensors/readings/AudioReadings.h"

#include "sensors/machine/audio.h"

AudioReadings readAudio(AudioSource &source, int selectedIndex)
{
    AudioReadings readings;
    readings.names = source.deviceNames();
    for (int index = 0; index < readings.names.size(); ++index)
        readings.volumes.append(source.volume(index));
    // Compatibility: volume-minus-one
    readings.selectedVolume = static_cast<int>(source.volume(selectedIndex));
    return readings;
}
