#pragma once

#include "deck_simulator/options/SimulatorOptions.h"

namespace deck {

/// Whether the simulator opens its window: yes if there is a display or "--window" was given,
/// unless an option asks for a run without a window.
bool opensWindow(const SimulatorOptions &options, bool hasDisplay);

} // namespace deck
