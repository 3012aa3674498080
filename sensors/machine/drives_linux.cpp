#include "sensors/machine/MountedDrives_linux.h"

DriveSource &machineDrives()
{
    static MountedDrives drives(QStringLiteral("/proc"), QStringLiteral("/sys"),
                                QStringLiteral("/dev"));
    return drives;
}
