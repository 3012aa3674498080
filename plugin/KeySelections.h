#pragma once

#include "plugin/SettingsReply.h"

class normalAction;

/// Sets the sensor, fan or disk that \a key shows, as its kind has one: the one that its settings
/// name, else the first of the list. Without either it is empty.
void applySelections(normalAction &key, SettingsOccasion occasion);
