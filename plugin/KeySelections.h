#pragma once

#include "plugin/SettingsOccasion.h"

class normalAction;

/// Sets the sensor, fan or disk that \a key shows, if its kind has one (plugin/KeyKinds.cpp).
void applySelections(normalAction &key, SettingsOccasion occasion);

/// Each sets one selection of \a key: to what its settings name, else to the first entry of the
/// list, else to the empty text.
namespace keyselection {

/// Only settings that are sent later may name a newly chosen sensor; see
/// KeySettings::newlyChosenSensor.
void sensor(normalAction &key, SettingsOccasion occasion);
void disk(normalAction &key, SettingsOccasion occasion);
void fan(normalAction &key, SettingsOccasion occasion);

} // namespace keyselection
