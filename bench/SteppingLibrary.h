#pragma once

/// Lets a second pass for the library that stands in for the shared one: it takes live readings of
/// this machine, a new sample for each step.
void stepOneSecond();
