#include "system_monitor_lib/live/processor/CpuModel.h"

#include <array>

#include <windows.h>

QString cpuModel(const MachineRoots & /*roots*/)
{
    std::array<wchar_t, 256> name{};
    auto size = static_cast<DWORD>(sizeof(name));
    const LSTATUS status =
        RegGetValueW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0",
                     L"ProcessorNameString", RRF_RT_REG_SZ, nullptr, name.data(), &size);
    return status == ERROR_SUCCESS ? QString::fromWCharArray(name.data()).simplified() : QString();
}
