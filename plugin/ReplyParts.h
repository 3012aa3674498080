#pragma once

struct SettingsDraft;

/// Parts of the settings reply for some kinds of keys only: settings that only they have, and the
/// lists that their settings panel offers.
namespace replypart {

void temperatureType(SettingsDraft &draft);
void titleLines(SettingsDraft &draft);
/// Drives and settings of a disk key.
void drives(SettingsDraft &draft);
/// Queries the drive trees from the library immediately.
void driveTemperatures(SettingsDraft &draft);
void playbackDevices(SettingsDraft &draft);
void sensors(SettingsDraft &draft);
void pump(SettingsDraft &draft);
void fans(SettingsDraft &draft);

} // namespace replypart
