#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include <windows.h>

namespace {

/// FILETIME counts 100 ns.
quint64 ticks(const FILETIME &time)
{
    return (quint64{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

} // namespace

class CpuTimesReader::Private
{
};

CpuTimesReader::CpuTimesReader(const MachineRoots & /*roots*/) {}

CpuTimesReader::~CpuTimesReader() = default;

std::optional<CpuTimes> CpuTimesReader::read()
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
