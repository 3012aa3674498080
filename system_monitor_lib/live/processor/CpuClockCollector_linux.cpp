#include "system_monitor_lib/live/processor/CpuClockCollector.h"

#include "system_monitor_lib/live/processor/CoreClocks.h"
#include "system_monitor_lib/live/processor/CpuCores.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"

#include <algorithm>

namespace {

constexpr std::size_t longestCpuInfo = std::size_t{512} * 1024;

} // namespace

CpuClockCollector::CpuClockCollector(const MachineRoots &roots, const QString &group,
                                     const MonotonicClock &stopwatch)
    : m_roots(roots)
    , m_group(group)
    , m_stopwatch(stopwatch)
    , m_cpuInfo(roots.proc + QStringLiteral("/cpuinfo"), longestCpuInfo)
{
}

bool CpuClockCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    if (m_reading.isDue(nowNs)) {
        m_clocks = m_hasFrequencies ? frequencies() : QJsonObject();
        if (m_clocks.isEmpty())
            m_clocks = cpuInfoClocks();
    }
    trees.add(Query::CpuInfo, m_clocks);
    trees.addDevice(Query::AllSensorsData, m_group, m_clocks);
    return !m_clocks.isEmpty();
}

void CpuClockCollector::look()
{
    m_hasFrequencies = true;
    const std::vector<int> found = firstProcessors(m_roots);
    const bool same =
        std::equal(found.begin(), found.end(), m_cores.begin(), m_cores.end(),
                   [](int processor, const Core &core) { return processor == core.processor; });
    if (same)
        return;
    m_cores.clear();
    const QString path =
        m_roots.sys + QStringLiteral("/devices/system/cpu/cpu%1/cpufreq/scaling_cur_freq");
    for (const int processor : found)
        m_cores.push_back({processor, std::make_unique<Attribute>(path.arg(processor))});
}

QJsonObject CpuClockCollector::frequencies()
{
    constexpr double kilohertzPerMegahertz = 1000;
    QJsonObject clocks;
    const qint64 start = m_stopwatch();
    for (std::size_t index = 0; index < m_cores.size(); ++index) {
        const std::optional<qint64> kilohertz = m_cores[index].clock->integer();
        // A machine without clocks of its cores has none of the first one either.
        if (index == 0 && !kilohertz) {
            m_hasFrequencies = false;
            return {};
        }
        const double megahertz = static_cast<double>(kilohertz.value_or(0)) / kilohertzPerMegahertz;
        if (isPlausibleClock(megahertz))
            clocks.insert(clockLabel(index), clockReading(megahertz));
        if (index == 0) {
            const bool isSlow = m_stopwatch() - start > slow.count();
            m_reading.setPeriod(isSlow ? slowPeriod : std::chrono::nanoseconds(0));
            if (isSlow)
                break;
        }
    }
    return clocks;
}

QJsonObject CpuClockCollector::cpuInfoClocks()
{
    const qint64 start = m_stopwatch();
    const std::string_view text = m_cpuInfo.read();
    const std::map<int, double> byProcessor = parseCpuClocks(text);
    const bool isRare = m_stopwatch() - start > slow.count() || !hasChangingClocks(text);
    m_reading.setPeriod(isRare ? slowPeriod : std::chrono::nanoseconds(0));
    QJsonObject clocks;
    std::size_t core = 0;
    if (m_cores.empty()) {
        for (const auto &[processor, megahertz] : byProcessor)
            clocks.insert(clockLabel(core++), clockReading(megahertz));
    }
    for (; core < m_cores.size(); ++core) {
        const auto clock = byProcessor.find(m_cores[core].processor);
        if (clock != byProcessor.end())
            clocks.insert(clockLabel(core), clockReading(clock->second));
    }
    return clocks;
}
