#include "system_monitor_lib/live/MachineRoots.h"

MachineRoots thisMachine()
{
    MachineRoots roots;
    roots.pciIds = QStringLiteral("/usr/share/misc/pci.ids");
    roots.nvidiaLibrary = QStringLiteral("libnvidia-ml.so.1");
    roots.boardChips = true;
    return roots;
}
