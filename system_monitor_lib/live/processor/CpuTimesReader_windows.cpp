#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include "system_monitor_lib/live/processor/ProcessorGroups.h"
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

} // namespace

class CpuTimesReader::Private
{
public:
    const ProcessorGroups groups = processorGroups();
    /// As of the last read.
    std::vector<QByteArray> answers;
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
    d->answers = d->groups();
    std::optional<CpuTimes> times;
    if (d->answers.size() > 1)
        times = sumOfProcessorTimes(d->answers);
    d->areGroupsKnown = d->areGroupsKnown || times;
    return d->areGroupsKnown ? times : timesOfOneGroup();
}

CpuDetails CpuTimesReader::details() const
{
    return detailsOfProcessorTimes(d->answers);
}
