#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/processor/ProcStatText.h"

class CpuTimesReader::Private
{
public:
    /// Enough for the first line, which alone is needed; the whole file can be very long.
    static constexpr std::size_t firstLine = 512;

    PolledFile stat;
};

CpuTimesReader::CpuTimesReader(const MachineRoots &roots)
    : d(new Private{PolledFile(roots.proc + QStringLiteral("/stat"), Private::firstLine)})
{
}

CpuTimesReader::~CpuTimesReader() = default;

std::optional<CpuTimes> CpuTimesReader::read()
{
    return parseProcStat(d->stat.read());
}
