#pragma once

// What readings of both processors and graphics cards are held to: a sensor that says more is
// broken.

/// Degrees Celsius.
constexpr unsigned highestTemperature = 150;
/// Megahertz.
constexpr unsigned highestClock = 100000;
/// Watts.
constexpr double highestPower = 100000.0;
