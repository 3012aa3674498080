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

/// The loads of the engines of each adapter: the sums over their processes.
QHash<quint64, QHash<QString, double>> engineLoads(const std::vector<CounterValue> &engines)
{
    QHash<quint64, QHash<QString, double>> sums;
    for (const CounterValue &counted : engines) {
        const std::optional<Part> part = partOf(counted.instance);
        if (part && isUsable(counted))
            sums[part->luid][part->name] += counted.value;
    }
    return sums;
}

/// Where the load of an engine belongs; null for engines of other kinds.
std::optional<double> GraphicsDetails::*kindOf(const QString &engine)
{
    static const QHash<QString, std::optional<double> GraphicsDetails::*> kinds{
        {QStringLiteral("3d"), &GraphicsDetails::drawPercent},
        {QStringLiteral("copy"), &GraphicsDetails::copyPercent},
        {QStringLiteral("videodecode"), &GraphicsDetails::decodePercent},
        {QStringLiteral("videoencode"), &GraphicsDetails::encodePercent}};
    return kinds.value(engine.section(QStringLiteral("_engtype_"), 1).toLower(), nullptr);
}

void addEngine(const QString &engine, double sum, GpuUsage &usage)
{
    constexpr double highestLoad = 100;
    const double load = std::min(sum, highestLoad);
    usage.loadPercent = std::max(usage.loadPercent.value_or(0), load);
    if (std::optional<double> GraphicsDetails::*const kind = kindOf(engine))
        usage.engines.*kind = std::max((usage.engines.*kind).value_or(0), load);
}

} // namespace

QHash<quint64, GpuUsage> gpuUsage(const std::vector<CounterValue> &engines,
                                  const std::vector<CounterValue> &memory)
{
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
    const QHash<quint64, QHash<QString, double>> loads = engineLoads(engines);
    for (auto adapter = loads.cbegin(); adapter != loads.cend(); ++adapter) {
        for (auto engine = adapter->cbegin(); engine != adapter->cend(); ++engine)
            addEngine(engine.key(), engine.value(), usage[adapter.key()]);
    }
    return usage;
}
