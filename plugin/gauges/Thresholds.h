#pragma once

#include "render/Gauge.h"

#include <optional>

/// From which value on a reading calls for attention.
struct Thresholds
{
    std::optional<double> warning;
    std::optional<double> critical;
    bool isWorseAbove = true; ///< Otherwise lower values are worse.
};

/// The level of \a value: that of the worst threshold that it has reached. A level that was \a
/// before stays until the value is better than its threshold by \a slack, which is at least 0.
gauge::Level levelOf(double value, const Thresholds &thresholds, double slack, gauge::Level before);
