#include "deck_simulator/options/RunMode.h"

namespace deck {

bool opensWindow(const SimulatorOptions &options, bool hasDisplay)
{
    return !options.headless && (options.window || hasDisplay);
}

} // namespace deck
