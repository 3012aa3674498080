#include "system_monitor_lib/live/Rates.h"

bool isUsableInterval(qint64 nanoseconds)
{
    return nanoseconds > 0 && nanoseconds <= longestInterval.count();
}

std::optional<double> ratePerSecond(quint64 previous, quint64 current, qint64 intervalNs)
{
    if (!isUsableInterval(intervalNs) || current < previous)
        return std::nullopt;
    const std::chrono::duration<double> seconds = std::chrono::nanoseconds(intervalNs);
    return static_cast<double>(current - previous) / seconds.count();
}

std::optional<double> cpuLoadPercent(const CpuTimes &previous, const CpuTimes &current)
{
    if (current.busy < previous.busy)
        return std::nullopt;
    if (current.busy + current.idle <= previous.busy + previous.idle)
        return std::nullopt;
    const auto busy = static_cast<double>(current.busy - previous.busy);
    const auto idle =
        current.idle > previous.idle ? static_cast<double>(current.idle - previous.idle) : 0.0;
    return 100.0 * busy / (busy + idle);
}
