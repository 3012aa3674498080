#include "deck_simulator/DisplayPlatform.h"

// A Windows session always has a desktop.

bool hasDisplay()
{
    return true;
}

void chooseDisplayPlatform() {}
