#include "deck_simulator/options/DisplayPlatform.h"

// A Windows session always has a desktop.

bool hasDisplay()
{
    return true;
}

void chooseDisplayPlatform() {}
