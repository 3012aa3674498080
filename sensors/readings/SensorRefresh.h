#pragma once

class VqSystemMonitorLib;

/// Asks the machine for its drives and playback devices and \a library for its sensor trees, and
/// overwrites the readings of systemInfor with what they hold. \a audioDevice is the index of the
/// device whose volume is AudioVolume. Never fails: what is missing is 0 with its default units, as
/// is all that a library would tell when \a library is null.
void refreshSystemInfor(VqSystemMonitorLib *library, int audioDevice);

/// Asks \a library, which may be null, for its sensor groups and takes the names of processor and
/// graphics from them.
void refreshModelNames(VqSystemMonitorLib *library);
