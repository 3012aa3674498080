#pragma once

#include <QString>

#include <memory>
#include <vector>

/// A graphics device in Windows' tree of devices.
struct DisplayDevice
{
    /// Its name in the tree, such as "PCI\VEN_10DE&DEV_2504&SUBSYS_39741462&REV_A1\4&1&0&0019".
    QString instance;
    QString name;
    /// Its place on the bus, such as "0000:09:00.0".
    QString address;
};

/// The numbers of maker and product in \a instance, such as "10de:2504"; empty when there are none.
QString pciIdOfInstance(const QString &instance);

/// The place on the bus that Windows' numbers of bus and address mean.
QString pciAddress(quint32 bus, quint32 address);

/// Whether two addresses mean the same place. The domain does not count, because only some of
/// Windows' answers have one.
bool isSamePlace(const QString &first, const QString &second);

/// The graphics devices of the machine. Nothing here wakes one.
class DisplayDevices
{
public:
    DisplayDevices() = default;
    virtual ~DisplayDevices() = default;
    Q_DISABLE_COPY(DisplayDevices)

    virtual std::vector<DisplayDevice> list() = 0;
    /// Whether the device is switched off (D3). False when unknown.
    virtual bool sleeps(const QString &instance) = 0;
};

std::unique_ptr<DisplayDevices> displayDevices();
