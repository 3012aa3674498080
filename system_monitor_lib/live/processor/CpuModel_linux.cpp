#include "system_monitor_lib/live/processor/CpuModel.h"

#include "system_monitor_lib/live/files/PolledFile.h"
#include "system_monitor_lib/live/files/SysfsText.h"
#include "system_monitor_lib/live/processor/ArmCores.h"
#include "system_monitor_lib/live/processor/CpuCores.h"
#include "system_monitor_lib/live/processor/CpuInfoText.h"

#include <QSysInfo>

namespace {

/// The device tree's name of the machine. Its texts end with a zero byte.
QString boardModel(const MachineRoots &roots)
{
    constexpr std::size_t longestName = 256;
    PolledFile file(roots.sys + QStringLiteral("/firmware/devicetree/base/model"), longestName);
    const std::string_view text = file.read();
    return parseWord(text.substr(0, text.find('\0')));
}

} // namespace

QString cpuModel(const MachineRoots &roots)
{
    // On most machines the first processor's lines are enough; the whole file queries every core.
    constexpr std::size_t firstProcessor = 4096;
    constexpr std::size_t everything = std::size_t{1024} * 1024;
    const QString path = roots.proc + QStringLiteral("/cpuinfo");
    QString model = parseCpuModel(PolledFile(path, firstProcessor).read());
    if (!model.isEmpty())
        return model;
    PolledFile whole(path, everything);
    const std::string_view text = whole.read();
    model = parseCpuModel(text);
    if (model.isEmpty())
        model = armCores(text);
    return model.isEmpty() ? boardModel(roots) : model;
}

QString cpuDescription(const MachineRoots &roots)
{
    QString architecture = QSysInfo::currentCpuArchitecture();
    const std::size_t cores = firstProcessors(roots).size();
    if (cores == 0)
        return architecture;
    return cores == 1 ? QStringLiteral("%1, 1 core").arg(architecture)
                      : QStringLiteral("%1, %2 cores").arg(architecture).arg(cores);
}
