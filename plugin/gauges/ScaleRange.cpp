#include "plugin/gauges/ScaleRange.h"

#include <algorithm>

double ScaleRange::shareOf(double value) const
{
    return length() > 0 ? std::clamp((value - lowest) / length(), 0.0, 1.0) : 0.0;
}

ScaleRange withEnds(const ScaleRange &own, std::optional<double> minimum,
                    std::optional<double> maximum)
{
    const ScaleRange wished{minimum.value_or(own.lowest), maximum.value_or(own.highest)};
    return wished.length() > 0 ? wished : own;
}
