#pragma once

#include <QString>

/// The name of a PCI device in a list of PCI devices (pci.ids(5)); the retail name if the list has
/// one in brackets. \a vendor and \a device are four hexadecimal digits. Empty when the list cannot
/// be read or lacks the device.
QString pciDeviceName(const QString &listPath, const QString &vendor, const QString &device);
