#pragma once

struct SettingsDraft;

/// What the reply to settings has for some kinds of keys only: the settings that they alone have,
/// and the lists that their settings panel offers.
namespace replypart {

void temperatureType(SettingsDraft &draft);
void titleLines(SettingsDraft &draft);
/// Drives and settings of a disk key.
void drives(SettingsDraft &draft);
/// The drive trees are asked of the library at once.
void driveTemperatures(SettingsDraft &draft);
void playbackDevices(SettingsDraft &draft);
void sensors(SettingsDraft &draft);
void pump(SettingsDraft &draft);
void fans(SettingsDraft &draft);

} // namespace replypart
