#include "system_monitor_lib/live/memory/MemoryReader.h"

#include <windows.h>

class MemoryReader::Private
{
};

MemoryReader::MemoryReader(const MachineRoots & /*roots*/) {}

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

MemoryDetails MemoryReader::details(qint64 /*nowNs*/)
{
    return {};
}
