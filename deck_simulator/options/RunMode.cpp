#include "deck_simulator/options/RunMode.h"

bool opensWindow(const SimulatorOptions &options, bool hasDisplay)
{
    return !options.headless && (options.window || hasDisplay);
}
