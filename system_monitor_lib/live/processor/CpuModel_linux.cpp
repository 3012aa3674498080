#include "system_monitor_lib/live/processor/CpuModel.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/processor/CpuCores.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"

#include <QSysInfo>

QString cpuModel(const MachineRoots &roots)
{
    // The first processor's lines say enough on most machines; the whole file asks every core.
    constexpr std::size_t firstProcessor = 4096;
    constexpr std::size_t everything = std::size_t{1024} * 1024;
    const QString path = roots.proc + QStringLiteral("/cpuinfo");
    const QString model = parseCpuModel(PolledFile(path, firstProcessor).read());
    return model.isEmpty() ? parseCpuModel(PolledFile(path, everything).read()) : model;
}

QString cpuDescription(const MachineRoots &roots)
{
    const QString architecture = QSysInfo::currentCpuArchitecture();
    const std::size_t cores = firstProcessors(roots).size();
    if (cores == 0)
        return architecture;
    return cores == 1 ? QStringLiteral("%1, 1 core").arg(architecture)
                      : QStringLiteral("%1, %2 cores").arg(architecture).arg(cores);
}
