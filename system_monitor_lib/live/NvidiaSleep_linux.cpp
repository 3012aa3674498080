#include "system_monitor_lib/live/NvidiaSleep.h"

#include "system_monitor_lib/live/Attribute.h"

#include <QDir>

bool allNvidiaGpusSleep(const MachineRoots &roots)
{
    // Beside the devices, whose names are addresses, lie the driver's own files.
    const QDir driver(roots.sys + QStringLiteral("/bus/pci/drivers/nvidia"));
    if (!driver.exists())
        return false;
    const QStringList devices =
        driver.entryList({QStringLiteral("*:*:*.*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &device : devices) {
        const QString status =
            attributeWord(driver.filePath(device + QStringLiteral("/power/runtime_status")));
        if (!status.startsWith(QLatin1String("suspend")))
            return false;
    }
    return !devices.isEmpty();
}
