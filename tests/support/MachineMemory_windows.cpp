#include "tests/support/MachineMemory.h"

#include <windows.h>

MachineMemory machineMemory()
{
    constexpr DWORDLONG megabyte = 1024 * 1024;
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status))
        return {};
    return {static_cast<int>(status.ullTotalPhys / megabyte),
            static_cast<int>(status.ullAvailPhys / megabyte)};
}
