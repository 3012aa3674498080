#include "system_monitor_lib/live/processor/CoreClocks.h"

#include "system_monitor_lib/SensorTrees.h"
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

QJsonObject coreClocks(const std::vector<quint64> &cores, const std::vector<unsigned> &megahertz)
{
    QJsonObject labels;
    for (std::size_t core = 0; core < cores.size(); ++core)
        addClock(labels, core, qCountTrailingZeroBits(cores[core]), megahertz);
    if (cores.empty()) {
        for (std::size_t processor = 0; processor < megahertz.size(); ++processor)
            addClock(labels, processor, processor, megahertz);
    }
    return labels;
}
