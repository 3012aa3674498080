#include "system_monitor_lib/live/MachineRoots.h"

#include <array>

#include <windows.h>

MachineRoots thisMachine()
{
    MachineRoots roots;
    std::array<wchar_t, MAX_PATH> folder{};
    // With its full path: a bare name would also be searched for in the working directory.
    const UINT length = GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    if (length > 0 && length < folder.size())
        roots.nvidiaLibrary = QString::fromWCharArray(folder.data()) + QStringLiteral("\\nvml.dll");
    return roots;
}
