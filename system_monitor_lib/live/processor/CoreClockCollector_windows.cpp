#include "system_monitor_lib/live/processor/CoreClockCollector.h"

#include <algorithm>

#include <windows.h>

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

/// Empty when the system does not tell.
std::vector<CoreMask> physicalCores()
{
    DWORD size = 0;
    GetLogicalProcessorInformationEx(RelationProcessorCore, nullptr, &size);
    QByteArray answer(static_cast<int>(size), '\0');
    auto *const first = reinterpret_cast<SYSTEM_LOGICAL_PROCESSOR_INFORMATION_EX *>(answer.data());
    if (size == 0 || !GetLogicalProcessorInformationEx(RelationProcessorCore, first, &size))
        return {};
    return parseCores(answer.left(static_cast<int>(size)));
}

/// The clock that the system measured when it started; 0 when it does not tell.
unsigned registeredMegahertz(unsigned processor)
{
    const std::wstring key = QStringLiteral("HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\%1")
                                 .arg(processor)
                                 .toStdWString();
    DWORD megahertz = 0;
    DWORD size = sizeof(megahertz);
    const LSTATUS status = RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"~MHz", RRF_RT_REG_DWORD,
                                        nullptr, &megahertz, &size);
    return status == ERROR_SUCCESS ? megahertz : 0;
}

/// By group. Empty where there is only one.
std::vector<std::vector<unsigned>> nominalClocks()
{
    const WORD count = GetActiveProcessorGroupCount();
    std::vector<std::vector<unsigned>> groups(count > 1 ? count : 0);
    unsigned processor = 0;
    for (WORD group = 0; count > 1 && group < count; ++group) {
        const DWORD inGroup = GetActiveProcessorCount(group);
        for (DWORD index = 0; index < inGroup; ++index)
            groups[group].push_back(registeredMegahertz(processor++));
    }
    return groups;
}

std::vector<unsigned> clocksOfGroup(std::optional<double> performance)
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

CoreClockCollector::CoreClockCollector(const QString &group)
    : m_group(group)
    , m_performance(QStringLiteral("\\Processor Information(_Total)\\% Processor Performance"))
{
}

void CoreClockCollector::look()
{
    m_cores = physicalCores();
    m_nominal = nominalClocks();
}

std::vector<std::vector<unsigned>>
CoreClockCollector::processorClocks(std::optional<double> performance) const
{
    if (m_nominal.empty())
        return {clocksOfGroup(performance)};
    std::vector<std::vector<unsigned>> megahertz = m_nominal;
    for (std::vector<unsigned> &group : megahertz) {
        for (unsigned &clock : group)
            clock = actualMegahertz(clock, clock, performance);
    }
    return megahertz;
}

bool CoreClockCollector::collect(qint64 nowNs, SensorTrees &trees)
{
    if (m_listing.isDue(nowNs))
        look();
    const QJsonObject clocks = coreClocks(m_cores, processorClocks(m_performance.value(nowNs)));
    trees.add(Query::CpuInfo, clocks);
    trees.addDevice(Query::AllSensorsData, m_group, clocks);
    return !clocks.isEmpty();
}
