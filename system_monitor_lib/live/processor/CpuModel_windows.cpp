#include "system_monitor_lib/live/processor/CpuModel.h"

#include <QSysInfo>
#include <QThread>

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

QString cpuDescription(const MachineRoots & /*roots*/)
{
    return QStringLiteral("%1, %2 threads")
        .arg(QSysInfo::currentCpuArchitecture())
        .arg(QThread::idealThreadCount());
}
