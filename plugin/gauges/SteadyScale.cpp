#include "plugin/gauges/SteadyScale.h"

#include <algorithm>
#include <numeric>

namespace {

/// How much room an end leaves.
constexpr double room = 1.3;

/// A scale is too long for samples below this share of it.
constexpr double tooLong = 0.1;

void count(std::size_t &inARow, bool again)
{
    inARow = again ? inARow + 1 : 0;
}

} // namespace

SteadyScale::SteadyScale(RoundSteps steps, double leastEnd)
    : m_steps(steps)
    , m_leastEnd(leastEnd)
{
}

void SteadyScale::add(double sample)
{
    m_last[m_count++ % lookBack] = sample;
    moveTop(sample);
    moveBottom(sample);
}

ScaleRange SteadyScale::range() const
{
    const double top = std::max(m_top, m_leastEnd);
    return {m_bottom, top > 0 || m_bottom < 0 ? top : 1.0};
}

void SteadyScale::moveTop(double sample)
{
    if (m_top <= 0) {
        if (sample > 0 || m_leastEnd > 0)
            m_top = roomAbove(std::max(sample, 0.0));
        return;
    }
    count(m_aboveTop, sample > m_top);
    count(m_farBelowTop, sample < m_top * tooLong);
    if (m_aboveTop < lookBack && m_farBelowTop < lookBack)
        return;
    // A fan that stands still keeps the scale that it had.
    const double mean = lastMean();
    if (mean > 0 || m_leastEnd > 0)
        m_top = roomAbove(std::max(mean, 0.0));
    m_aboveTop = 0;
    m_farBelowTop = 0;
}

void SteadyScale::moveBottom(double sample)
{
    if (sample < m_bottom) {
        m_bottom = -roundNumberAbove(-sample, m_steps);
        m_farAboveBottom = 0;
        return;
    }
    count(m_farAboveBottom, m_bottom < 0 && sample > m_bottom * tooLong);
    if (m_farAboveBottom < lookBack)
        return;
    const double lowest = lastLowest();
    m_bottom = lowest < 0 ? -roundNumberAbove(-lowest, m_steps) : 0.0;
    m_farAboveBottom = 0;
}

double SteadyScale::roomAbove(double value) const
{
    return std::max(roundNumberAbove(value * room, m_steps), m_leastEnd);
}

double SteadyScale::lastMean() const
{
    return std::accumulate(m_last.begin(), m_last.end(), 0.0) / static_cast<double>(lookBack);
}

double SteadyScale::lastLowest() const
{
    return *std::min_element(m_last.begin(), m_last.end());
}
