#include "system_monitor_lib/live/processor/CpuTimesReader.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/processor/ProcStatText.h"

class CpuTimesReader::Private
{
public:
    /// Enough for some 600 processors; what follows them in the file can be very long.
    static constexpr std::size_t longest = std::size_t{64} * 1024;

    PolledFile stat;
    std::string_view text = {};
};

CpuTimesReader::CpuTimesReader(const MachineRoots &roots)
    : d(new Private{PolledFile(roots.proc + QStringLiteral("/stat"), Private::longest)})
{
}

CpuTimesReader::~CpuTimesReader() = default;

std::optional<CpuTimes> CpuTimesReader::read()
{
    d->text = d->stat.read();
    return parseProcStat(d->text);
}

CpuDetails CpuTimesReader::details() const
{
    return parseProcStatDetails(d->text);
}
