#include "system_monitor_lib/live/graphics/GpuCounters.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

/// A part of an adapter: an engine, or one of several linked GPUs.
struct Part
{
    quint64 luid;
    QString name;
};

std::optional<Part> partOf(const QString &instance)
{
    static const QRegularExpression pattern(
        QStringLiteral("(?:^|_)luid_0x([0-9a-f]{1,8})_0x([0-9a-f]{1,8})_(phys_.+)$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(instance);
    if (!match.hasMatch())
        return std::nullopt;
    constexpr int hexadecimal = 16;
    constexpr unsigned bitsOfHalf = 32;
    const quint64 high = match.captured(1).toUInt(nullptr, hexadecimal);
    const quint64 low = match.captured(2).toUInt(nullptr, hexadecimal);
    return Part{high << bitsOfHalf | low, match.captured(3)};
}

/// Whether it is a number that the counter can have.
bool isUsable(const CounterValue &counted)
{
    constexpr double highest = 1e15;
    return counted.value >= 0 && counted.value <= highest;
}

QHash<quint64, double> busiestEngines(const std::vector<CounterValue> &engines)
{
    QHash<quint64, QHash<QString, double>> sums;
    for (const CounterValue &counted : engines) {
        const std::optional<Part> part = partOf(counted.instance);
        if (part && isUsable(counted))
            sums[part->luid][part->name] += counted.value;
    }
    QHash<quint64, double> busiest;
    for (auto sum = sums.cbegin(); sum != sums.cend(); ++sum)
        busiest.insert(sum.key(), *std::max_element(sum->cbegin(), sum->cend()));
    return busiest;
}

} // namespace

QHash<quint64, GpuUsage> gpuUsage(const std::vector<CounterValue> &engines,
                                  const std::vector<CounterValue> &memory)
{
    constexpr double highestLoad = 100;
    QHash<quint64, GpuUsage> usage;
    for (const CounterValue &counted : memory) {
        const std::optional<Part> part = partOf(counted.instance);
        if (!part || !isUsable(counted))
            continue;
        GpuUsage &adapter = usage[part->luid];
        adapter.memoryBytes = adapter.memoryBytes.value_or(0) + static_cast<quint64>(counted.value);
        // Without any engine the counters may be at their first sample.
        if (!engines.empty())
            adapter.loadPercent = 0;
    }
    const QHash<quint64, double> busiest = busiestEngines(engines);
    for (auto load = busiest.cbegin(); load != busiest.cend(); ++load)
        usage[load.key()].loadPercent = std::min(*load, highestLoad);
    return usage;
}
