#include "system_monitor_lib/live/processor/CoreClockCollector.h"

#include "system_monitor_lib/live/processor/CoreClocks.h"

#include <algorithm>

#include <windows.h>

#include <pdh.h>
#include <powrprof.h>

namespace {

constexpr std::size_t mostProcessors = 64;

/// PROCESSOR_POWER_INFORMATION, which no header declares.
struct ProcessorPower
{
    ULONG number;
    ULONG maxMhz;
    ULONG currentMhz;
    ULONG mhzLimit;
    ULONG maxIdleState;
    ULONG currentIdleState;
};
static_assert(sizeof(ProcessorPower) == 24);

/// A mask of processors for each physical core; empty when the system does not tell.
std::vector<quint64> coreMasks()
{
    DWORD size = 0;
    GetLogicalProcessorInformation(nullptr, &size);
    std::vector<SYSTEM_LOGICAL_PROCESSOR_INFORMATION> relations(
        size / sizeof(SYSTEM_LOGICAL_PROCESSOR_INFORMATION));
    if (relations.empty() || !GetLogicalProcessorInformation(relations.data(), &size))
        return {};
    std::vector<quint64> masks;
    for (const auto &relation : relations) {
        if (relation.Relationship == RelationProcessorCore)
            masks.push_back(relation.ProcessorMask);
    }
    return masks;
}

std::vector<unsigned> processorClocks(std::optional<double> performance)
{
    SYSTEM_INFO system = {};
    GetSystemInfo(&system);
    std::vector<ProcessorPower> processors(
        std::min<std::size_t>(system.dwNumberOfProcessors, mostProcessors));
    const auto size = static_cast<ULONG>(processors.size() * sizeof(ProcessorPower));
    if (CallNtPowerInformation(ProcessorInformation, nullptr, 0, processors.data(), size) != 0)
        return {};
    std::vector<unsigned> megahertz;
    megahertz.reserve(processors.size());
    for (const ProcessorPower &processor : processors)
        megahertz.push_back(actualMegahertz(processor.maxMhz, processor.currentMhz, performance));
    return megahertz;
}

} // namespace

/// The performance counter, which compares each sample with the one before.
class CoreClockCollector::Performance
{
public:
    Performance()
    {
        if (PdhOpenQueryW(nullptr, 0, &m_query) != ERROR_SUCCESS)
            m_query = nullptr;
        if (m_query && PdhAddEnglishCounterW(
                           m_query, L"\\Processor Information(_Total)\\% Processor Performance", 0,
                           &m_counter) != ERROR_SUCCESS)
            m_counter = nullptr;
    }
    ~Performance()
    {
        if (m_query)
            PdhCloseQuery(m_query);
    }
    Q_DISABLE_COPY(Performance)

    /// In percent of the nominal clock; nothing at first and where Windows has no such counter.
    std::optional<double> percent()
    {
        PDH_FMT_COUNTERVALUE value = {};
        if (!m_counter || PdhCollectQueryData(m_query) != ERROR_SUCCESS ||
            PdhGetFormattedCounterValue(m_counter, PDH_FMT_DOUBLE | PDH_FMT_NOCAP100, nullptr,
                                        &value) != ERROR_SUCCESS)
            return std::nullopt;
        return value.doubleValue;
    }

private:
    PDH_HQUERY m_query = nullptr;
    PDH_HCOUNTER m_counter = nullptr;
};

CoreClockCollector::CoreClockCollector(const QString &group)
    : m_group(group)
    , m_performance(std::make_unique<Performance>())
{
}

CoreClockCollector::~CoreClockCollector() = default;

bool CoreClockCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        m_cores = coreMasks();
    const QJsonObject clocks = coreClocks(m_cores, processorClocks(m_performance->percent()));
    trees.add(Query::CpuInfo, clocks);
    trees.addDevice(Query::AllSensorsData, m_group, clocks);
    return !clocks.isEmpty();
}
