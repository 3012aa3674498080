#pragma once

/// Fills the in-memory library with the trees of a desktop with eight cores, a graphics card, two
/// drives and a board of fans. Every value differs from that of the step before.
void writeReadings(int step);
