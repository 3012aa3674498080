#include "system_monitor_lib/live/graphics/GpuIdleTime.h"

#include "system_monitor_lib/live/Rates.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

/// The file of the time in milliseconds; empty when there is none. With RC6 disabled, i915 still
/// has the file, but its value stays constant.
QString idleFile(const QString &card, const QString &driver)
{
    if (driver == QLatin1String("xe")) {
        const QString file = card + QStringLiteral("/device/tile0/gt0/gtidle/idle_residency_ms");
        return QFileInfo::exists(file) ? file : QString();
    }
    if (driver != QLatin1String("i915"))
        return {};
    for (const char *const folder : {"/gt/gt0/", "/power/"}) {
        const QString start = card + QLatin1String(folder);
        Attribute enabled(start + QStringLiteral("rc6_enable"));
        if (enabled.integer().value_or(0) > 0)
            return start + QStringLiteral("rc6_residency_ms");
    }
    return {};
}

} // namespace

GpuIdleTime::GpuIdleTime(const QString &card, const QString &driver)
    : m_isCounted(!idleFile(card, driver).isEmpty())
    , m_milliseconds(idleFile(card, driver))
{
}

std::optional<double> GpuIdleTime::load(qint64 nowNs)
{
    constexpr double milliseconds = 1000;
    // The counter and the clock are read one after the other.
    constexpr double mostIdle = 1.1;
    const std::optional<qint64> number = m_milliseconds.integer();
    const auto current =
        number && *number >= 0 ? std::optional(static_cast<quint64>(*number)) : std::nullopt;
    const std::optional<quint64> before = std::exchange(m_previous, current);
    const qint64 intervalNs = nowNs - std::exchange(m_previousNs, nowNs);
    if (!current || !before)
        return std::nullopt;
    const std::optional<double> perSecond = ratePerSecond(*before, *current, intervalNs);
    if (!perSecond || *perSecond > mostIdle * milliseconds)
        return std::nullopt;
    return 100 * std::max(0.0, 1 - *perSecond / milliseconds);
}
