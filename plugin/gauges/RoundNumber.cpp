#include "plugin/gauges/RoundNumber.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallest = 1e-9;
constexpr double largest = 1e15;

double decimalAbove(double value)
{
    const double held = std::clamp(value, smallest, largest);
    const double power = std::pow(10.0, std::floor(std::log10(held)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        if (factor * power > held)
            return factor * power;
    }
    // The logarithm was rounded down.
    return 20.0 * power;
}

double bytesAbove(double kilobytes)
{
    constexpr double megabyte = 1024.0;
    constexpr double gigabyte = 1024.0 * megabyte;
    constexpr double highestOfUnit = 500.0;
    const double inKilobytes = decimalAbove(kilobytes);
    if (inKilobytes <= highestOfUnit)
        return inKilobytes;
    const double inMegabytes = std::max(decimalAbove(kilobytes / megabyte), 1.0);
    if (inMegabytes <= highestOfUnit)
        return inMegabytes * megabyte;
    return std::max(decimalAbove(kilobytes / gigabyte), 1.0) * gigabyte;
}

} // namespace

double roundNumberAbove(double value, RoundSteps steps)
{
    switch (steps) {
    case RoundSteps::Bytes:
        return bytesAbove(value);
    case RoundSteps::Bits:
        return decimalAbove(value / kilobytesPerKilobit) * kilobytesPerKilobit;
    case RoundSteps::Decimal:
        break;
    }
    return decimalAbove(value);
}
