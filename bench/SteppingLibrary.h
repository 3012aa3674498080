#pragma once

/// Advances by a second the clock of the library that stands in for the shared one: it takes live
/// readings of this machine, a new sample for each step.
void stepOneSecond();
