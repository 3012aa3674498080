#pragma once

#include "plugin/gauges/RoundNumber.h"
#include "plugin/gauges/ScaleRange.h"

#include <array>
#include <cstddef>

/// A scale from 0, or from a round number below negative samples, to a round number above all. It
/// follows the samples in steps and late, so that a graph does not breathe.
class SteadyScale
{
public:
    /// The upper end is never below \a leastEnd.
    explicit SteadyScale(RoundSteps steps = RoundSteps::Decimal, double leastEnd = 0);

    /// Takes the next sample, which is finite.
    void add(double sample);

    ScaleRange range() const;

private:
    static constexpr std::size_t lookBack = 5;

    void moveTop(double sample);
    void moveBottom(double sample);
    double roomAbove(double value) const;
    double lastMean() const;
    double lastLowest() const;

    RoundSteps m_steps;
    double m_leastEnd;
    double m_top = 0;                      ///< 0 before the first sample that tells it.
    double m_bottom = 0;                   ///< At most 0.
    std::array<double, lookBack> m_last{}; ///< A ring.
    std::size_t m_count = 0;
    // Samples in a row.
    std::size_t m_aboveTop = 0;
    std::size_t m_farBelowTop = 0;
    std::size_t m_farAboveBottom = 0;
};
