#include "system_monitor_lib/live/processor/CoreClocks.h"

#include "system_monitor_lib/SensorTrees.h"
#include "system_monitor_lib/live/BinaryAnswer.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"

#include <QtAlgorithms>

#include <cmath>

namespace {

void addClock(QJsonObject &labels, std::size_t core, std::size_t processor,
              const std::vector<unsigned> &megahertz)
{
    if (processor < megahertz.size() && isPlausibleClock(megahertz[processor]))
        labels.insert(clockLabel(core), clockReading(megahertz[processor]));
}

/// Each processor as a core.
QJsonObject processorClocks(const std::vector<std::vector<unsigned>> &megahertz)
{
    QJsonObject labels;
    std::size_t core = 0;
    for (const std::vector<unsigned> &group : megahertz) {
        for (std::size_t processor = 0; processor < group.size(); ++processor)
            addClock(labels, core++, processor, group);
    }
    return labels;
}

} // namespace

QString clockLabel(std::size_t core)
{
    return QStringLiteral("Core %1 Clock").arg(core);
}

QJsonArray clockReading(double megahertz)
{
    return reading(megahertz, QStringLiteral("MHz"));
}

unsigned actualMegahertz(unsigned nominal, unsigned current, std::optional<double> performance)
{
    constexpr double highest = 1000;
    if (!performance || !(*performance > 0 && *performance <= highest))
        return current;
    return static_cast<unsigned>(std::lround(nominal * *performance / 100));
}

std::vector<CoreMask> parseCores(const QByteArray &answer)
{
    // SYSTEM_LOGICAL_PROCESSOR_INFORMATION_EX with a PROCESSOR_RELATIONSHIP, whose first
    // GROUP_AFFINITY is the only one of a core.
    constexpr int sizeOffset = 4;
    constexpr int maskOffset = 32;
    constexpr int groupOffset = 40;
    constexpr quint32 shortest = 48;
    constexpr quint32 processorCore = 0;
    std::vector<CoreMask> cores;
    for (int at = 0; at < answer.size();) {
        const quint32 size = numberAt<quint32>(answer, at + sizeOffset).value_or(0);
        if (size < shortest || size > static_cast<quint32>(answer.size() - at))
            break;
        if (numberAt<quint32>(answer, at) == processorCore)
            cores.push_back({numberAt<quint16>(answer, at + groupOffset).value_or(0),
                             numberAt<quint64>(answer, at + maskOffset).value_or(0)});
        at += static_cast<int>(size);
    }
    return cores;
}

QJsonObject coreClocks(const std::vector<CoreMask> &cores,
                       const std::vector<std::vector<unsigned>> &megahertz)
{
    if (cores.empty())
        return processorClocks(megahertz);
    QJsonObject labels;
    for (std::size_t core = 0; core < cores.size(); ++core) {
        const CoreMask &mask = cores[core];
        if (mask.group < megahertz.size())
            addClock(labels, core, qCountTrailingZeroBits(mask.processors), megahertz[mask.group]);
    }
    return labels;
}
