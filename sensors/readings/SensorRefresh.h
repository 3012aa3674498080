#pragma once

class VqSystemMonitorLib;

/// Queries the machine for its drives and playback devices and \a library for its sensor trees, and
/// overwrites the readings in systemInfor. \a audioDevice is the index of the device whose volume
/// is AudioVolume. Never fails: a missing reading is 0 with its default units, and so is every
/// reading from the library when \a library is null.
void refreshSystemInfor(VqSystemMonitorLib *library, int audioDevice);

/// Queries \a library, which may be null, for its sensor groups and takes the names of processor
/// and graphics from them.
void refreshModelNames(VqSystemMonitorLib *library);
