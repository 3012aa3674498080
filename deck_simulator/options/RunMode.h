#pragma once

#include "deck_simulator/options/SimulatorOptions.h"

namespace deck {

/// Whether the simulator opens its window: where there is a display, or where one is asked for with
/// "--window", unless an option asks for a run without one.
bool opensWindow(const SimulatorOptions &options, bool hasDisplay);

} // namespace deck
