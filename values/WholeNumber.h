#pragma once

/// Whole numbers from the values of readings and settings.
namespace wholenumber {

/// \a value truncated toward zero and limited to the range of an int; 0 if it is not a number.
int truncated(double value);

/// \a value, or \a cap when it is above; the comparison is unsigned, so that a negative value
/// becomes the cap too.
int capped(int value, unsigned cap);

} // namespace wholenumber
