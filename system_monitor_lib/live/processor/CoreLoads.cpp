#include "system_monitor_lib/live/processor/CoreLoads.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/Rates.h"

#include <algorithm>

namespace {

const QString percent = QStringLiteral("%");

/// The share of the \a total time between two samples.
std::optional<double> share(std::optional<quint64> previous, std::optional<quint64> current,
                            quint64 total)
{
    if (!previous || !current)
        return std::nullopt;
    // The kernel documents that waiting time may go back a little.
    const quint64 spent = *current > *previous ? *current - *previous : 0;
    return 100 * std::min(static_cast<double>(spent) / static_cast<double>(total), 1.0);
}

} // namespace

QJsonObject coreLoadLabels(const std::vector<CoreTimes> &previous,
                           const std::vector<CoreTimes> &current)
{
    QJsonObject labels;
    std::optional<double> busiest;
    auto before = previous.begin();
    for (const CoreTimes &core : current) {
        while (before != previous.end() && before->number < core.number)
            ++before;
        if (before == previous.end())
            break;
        if (before->number != core.number)
            continue;
        const std::optional<double> load = cpuLoadPercent(before->times, core.times);
        addReading(labels, QStringLiteral("Core #%1 Load").arg(core.number), load, percent);
        if (load)
            busiest = std::max(busiest.value_or(0), *load);
    }
    addReading(labels, QStringLiteral("Busiest Core Load"), busiest, percent);
    return labels;
}

QJsonObject cpuModeLabels(const CpuModes &previous, const CpuModes &current)
{
    if (current.total <= previous.total || current.user < previous.user ||
        current.system < previous.system)
        return {};
    const quint64 total = current.total - previous.total;
    QJsonObject labels;
    addReading(labels, QStringLiteral("User Load"), share(previous.user, current.user, total),
               percent);
    addReading(labels, QStringLiteral("System Load"), share(previous.system, current.system, total),
               percent);
    addReading(labels, QStringLiteral("Waiting for Disks"),
               share(previous.waiting, current.waiting, total), percent);
    return labels;
}

QString processorGroup()
{
    return QStringLiteral("Processor");
}
