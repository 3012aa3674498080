#pragma once

/// Advances by a second the clock of the library that stands in for the shared one: it takes live
/// readings of this machine, or of the captured one that BENCH_MACHINE names, a new sample for each
/// step.
void stepOneSecond();
