#include "deck_simulator/options/DisplayPlatform.h"

namespace deck {

// A Windows session always has a desktop.

bool hasDisplay()
{
    return true;
}

void chooseDisplayPlatform() {}

} // namespace deck
