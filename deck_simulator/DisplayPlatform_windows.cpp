#include "deck_simulator/DisplayPlatform.h"

// A Windows session always has a desktop.
void chooseDisplayPlatform() {}
