#include "system_monitor_lib/live/MachineRoots.h"

#include <QFileInfo>

QString firstFile(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

MachineRoots thisMachine()
{
    MachineRoots roots;
    roots.pciIds = firstFile({QStringLiteral("/usr/share/misc/pci.ids"),
                              QStringLiteral("/usr/share/hwdata/pci.ids"),
                              QStringLiteral("/usr/share/pci.ids")});
    roots.amdIds = QStringLiteral("/usr/share/libdrm/amdgpu.ids");
    roots.nvidiaLibrary = QStringLiteral("libnvidia-ml.so.1");
    roots.run = QStringLiteral("/run");
    roots.boardChips = true;
    roots.wirelessLinks = true;
    return roots;
}
