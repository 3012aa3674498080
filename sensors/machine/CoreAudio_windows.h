#pragma once

#include <QStringList>

struct IMMDeviceEnumerator;

/// The playback devices that Windows' Core Audio lists. \a enumerator may be null, which is how its
/// failed creation is reported.
namespace coreaudio {

/// The friendly names of the active playback devices, in the enumerator's order; one whose name
/// cannot be read is left out.
QStringList deviceNames(IMMDeviceEnumerator *enumerator);

/// The master volume of the active playback device at \a index, 0 to 100. On failure -1 and one
/// debug line that begins with "AudioERR: ".
float volume(IMMDeviceEnumerator *enumerator, int index);

} // namespace coreaudio
