#include "sensors/machine/PulseAudioDevices_linux.h"

AudioSource &machineAudio()
{
    static PulseAudioDevices devices;
    return devices;
}
