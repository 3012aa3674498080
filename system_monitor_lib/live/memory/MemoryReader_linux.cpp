#include "system_monitor_lib/live/memory/MemoryReader.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/memory/MeminfoText.h"

class MemoryReader::Private
{
public:
    PolledFile meminfo;
};

MemoryReader::MemoryReader(const MachineRoots &roots)
    : d(new Private{PolledFile(roots.proc + QStringLiteral("/meminfo"))})
{
}

MemoryReader::~MemoryReader() = default;

std::optional<MemoryState> MemoryReader::read()
{
    return parseMeminfo(d->meminfo.read());
}
