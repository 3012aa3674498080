#pragma once

/// Whole numbers out of what readings and settings hold.
namespace wholenumber {

/// \a value truncated toward zero, held to the range of an int; 0 for what is no number.
int truncated(double value);

/// \a value, or \a cap when it is above; the comparison is unsigned, so that a negative value
/// becomes the cap too.
int capped(int value, unsigned cap);

} // namespace wholenumber
