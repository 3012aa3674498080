#include "plugin/gauges/Extremes.h"

#include <algorithm>

void Extremes::add(double value)
{
    m_lowest = m_count == 0 ? value : std::min(m_lowest, value);
    m_highest = m_count == 0 ? value : std::max(m_highest, value);
    m_sum += value;
    ++m_count;
}

std::optional<double> Extremes::valueOf(gauge::Extreme which) const
{
    if (m_count == 0)
        return std::nullopt;
    switch (which) {
    case gauge::Extreme::Minimum:
        return m_lowest;
    case gauge::Extreme::Maximum:
        return m_highest;
    case gauge::Extreme::Mean:
        return m_sum / static_cast<double>(m_count);
    case gauge::Extreme::None:
        break;
    }
    return std::nullopt;
}
