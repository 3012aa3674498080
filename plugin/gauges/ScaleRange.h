#pragma once

#include <optional>

/// The ends of a scale.
struct ScaleRange
{
    double lowest = 0;
    double highest = 1;

    double length() const { return highest - lowest; }
    /// The place of \a value on the scale, 0 to 1.
    double shareOf(double value) const;
    bool contains(double value) const { return value >= lowest && value <= highest; }
};

/// \a own with the ends that the user wishes. An end that does not lie beyond the other is ignored.
ScaleRange withEnds(const ScaleRange &own, std::optional<double> minimum,
                    std::optional<double> maximum);
