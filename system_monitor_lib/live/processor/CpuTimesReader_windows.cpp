#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include "system_monitor_lib/live/processor/ProcessorTimes.h"

#include <windows.h>

namespace {

/// FILETIME counts 100 ns.
quint64 ticks(const FILETIME &time)
{
    return (quint64{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

/// The times of the processors of the calling thread's group: at most 64.
std::optional<CpuTimes> timesOfOneGroup()
{
    FILETIME idle = {};
    FILETIME kernel = {};
    FILETIME user = {};
    if (GetSystemTimes(&idle, &kernel, &user) == 0)
        return std::nullopt;
    // The kernel's time includes the idle time.
    const quint64 total = ticks(kernel) + ticks(user);
    if (ticks(idle) > total)
        return std::nullopt;
    return CpuTimes{total - ticks(idle), ticks(idle)};
}

/// NtQuerySystemInformationEx, the form of NtQuerySystemInformation that takes a group.
using QueryOfGroup = LONG(NTAPI *)(ULONG topic, void *group, ULONG groupSize, void *answer,
                                   ULONG answerSize, ULONG *size);

QueryOfGroup queryOfGroup()
{
    return reinterpret_cast<QueryOfGroup>(reinterpret_cast<void (*)()>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformationEx")));
}

/// Empty when the system does not tell.
QByteArray timesOfGroup(QueryOfGroup query, USHORT group)
{
    constexpr ULONG processorPerformance = 8;
    constexpr int longest = 64 * 48;
    QByteArray answer(longest, '\0');
    ULONG size = 0;
    if (!query || query(processorPerformance, &group, sizeof(group), answer.data(),
                        static_cast<ULONG>(answer.size()), &size) < 0)
        return {};
    answer.truncate(static_cast<int>(size));
    return answer;
}

} // namespace

class CpuTimesReader::Private
{
public:
    const QueryOfGroup query = queryOfGroup();
    /// Whether sums over the groups are given; this must not change between two samples.
    bool areGroupsKnown = false;
};

CpuTimesReader::CpuTimesReader(const MachineRoots & /*roots*/)
    : d(std::make_unique<Private>())
{
}

CpuTimesReader::~CpuTimesReader() = default;

std::optional<CpuTimes> CpuTimesReader::read()
{
    const WORD count = GetActiveProcessorGroupCount();
    std::vector<QByteArray> groups;
    for (WORD group = 0; count > 1 && group < count; ++group)
        groups.push_back(timesOfGroup(d->query, group));
    const std::optional<CpuTimes> times = sumOfProcessorTimes(groups);
    d->areGroupsKnown = d->areGroupsKnown || times;
    return d->areGroupsKnown ? times : timesOfOneGroup();
}

CpuDetails CpuTimesReader::details() const
{
    return {};
}
