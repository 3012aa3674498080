#include "system_monitor_lib/live/files/DeviceOrder.h"

#include <QFileInfo>

QString orderOfDevice(const QString &device)
{
    const QString place = QFileInfo(device).canonicalFilePath();
    const bool comesAndGoes = place.contains(QLatin1String("/usb"));
    return (comesAndGoes ? QLatin1Char('1') : QLatin1Char('0')) + place;
}
