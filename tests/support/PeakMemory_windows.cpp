#include "tests/support/PeakMemory.h"

#include <windows.h>
// After windows.h, which it needs.
#include <psapi.h>

qint64 peakMemory()
{
    PROCESS_MEMORY_COUNTERS counters{};
    return K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters)
               ? static_cast<qint64>(counters.PeakWorkingSetSize)
               : 0;
}
