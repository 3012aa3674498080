#pragma once

#include "plugin/SettingsOccasion.h"

class normalAction;

/// Sets the sensor, fan or disk that \a key shows, as its kind has one (plugin/KeyKinds.cpp).
void applySelections(normalAction &key, SettingsOccasion occasion);

/// Set one selection of \a key: to what its settings name, else to the first of the list. Without
/// either it is empty.
namespace keyselection {

/// Only settings that are sent later may choose anew; see KeySettings::newlyChosenSensor.
void sensor(normalAction &key, SettingsOccasion occasion);
void disk(normalAction &key, SettingsOccasion occasion);
void fan(normalAction &key, SettingsOccasion occasion);

} // namespace keyselection
