#include "system_monitor_lib/live/memory/MemoryReader.h"

#include "system_monitor_lib/live/memory/MemoryPages.h"

#include <windows.h>

class MemoryReader::Private
{
public:
    MemoryDetails details(qint64 nowNs) { return detailsOfPages(m_pages(nowNs)); }

private:
    const MemoryPagesReader m_pages = memoryPages();
};

/// Windows goes through its list of processes for them.
const std::chrono::nanoseconds MemoryReader::detailsPeriod = std::chrono::seconds(5);

MemoryReader::MemoryReader(const MachineRoots & /*roots*/)
    : d(std::make_unique<Private>())
{
}

MemoryReader::~MemoryReader() = default;

std::optional<MemoryState> MemoryReader::read()
{
    constexpr quint64 bytesPerKiB = 1024;
    MEMORYSTATUSEX status = {};
    status.dwLength = sizeof(status);
    if (GlobalMemoryStatusEx(&status) == 0)
        return std::nullopt;
    const MemoryState state{status.ullTotalPhys / bytesPerKiB, status.ullAvailPhys / bytesPerKiB};
    if (state.total == 0 || state.available > state.total)
        return std::nullopt;
    return state;
}

MemoryDetails MemoryReader::details(qint64 nowNs)
{
    return d->details(nowNs);
}
