#pragma once

/// What the ends of a scale may be.
enum class RoundSteps {
    Decimal, ///< 1, 2, 5 × 10ⁿ.
    Bytes,   ///< Of rates in KB/s: 1 to 500 KB/s, 1 to 500 MB/s by 1024, from 1 GB/s on.
    Bits,    ///< Of rates in KB/s, round in kbit/s.
};

/// KB/s in one kbit/s: 1000 bits, 1024 bytes.
constexpr double kilobytesPerKilobit = 1000.0 / 8.0 / 1024.0;

/// The first round number above \a value, which is at least 0. Beyond what any sensor counts, at
/// 10¹⁵ and below 10⁻⁹, it stays the same.
double roundNumberAbove(double value, RoundSteps steps = RoundSteps::Decimal);
