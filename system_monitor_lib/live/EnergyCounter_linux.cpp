#include "system_monitor_lib/live/EnergyCounter.h"

#include "system_monitor_lib/live/Rates.h"

#include <utility>

namespace {

/// More than anything here can consume; a counter that was reset can look like this.
constexpr double highestPower = 5000;

std::optional<quint64> counted(Attribute &attribute)
{
    const std::optional<qint64> number = attribute.integer();
    return number && *number >= 0 ? std::optional(static_cast<quint64>(*number)) : std::nullopt;
}

} // namespace

EnergyCounter::EnergyCounter(const QString &path, const QString &range)
    : m_energy(path)
    , m_range(range)
{
}

std::optional<double> EnergyCounter::watts(qint64 nowNs)
{
    const std::optional<quint64> current = counted(m_energy);
    const std::optional<quint64> before = std::exchange(m_previous, current);
    const qint64 intervalNs = nowNs - std::exchange(m_previousNs, nowNs);
    if (!current || !before || *current == 0)
        return std::nullopt;
    const quint64 wrap = *current < *before ? counted(m_range).value_or(0) : 0;
    const std::optional<double> microwatts = ratePerSecond(*before, *current + wrap, intervalNs);
    if (!microwatts || *microwatts > highestPower * microjoulesPerJoule)
        return std::nullopt;
    return *microwatts / microjoulesPerJoule;
}
