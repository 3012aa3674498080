#include "values/WholeNumber.h"

#include <cmath>
#include <limits>

int wholenumber::truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

int wholenumber::capped(int value, unsigned cap)
{
    // Compatibility: unsigned-caps
    return static_cast<unsigned>(value) > cap ? static_cast<int>(cap) : value;
}
