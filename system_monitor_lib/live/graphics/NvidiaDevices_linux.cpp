#include "system_monitor_lib/live/graphics/NvidiaDevices.h"

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/files/SysfsText.h"

#include <QDir>

#include <algorithm>

namespace {

constexpr qint64 longestDelayMs = 60'000;

/// For the attributes "vendor" and "device", which the kernel has cached: this wakes nothing.
QString pciIdOf(const QString &directory)
{
    const QString vendor = attributeWord(directory + QStringLiteral("/vendor")).mid(2);
    const QString device = attributeWord(directory + QStringLiteral("/device")).mid(2);
    return device.isEmpty() ? QString() : QStringLiteral("%1:%2").arg(vendor, device);
}

/// The files of one device (Documentation/ABI/testing/sysfs-devices-power in the kernel), which
/// stay open.
class Files
{
public:
    Files(const QString &name, const QString &directory)
        : address(name)
        , m_pciId(pciIdOf(directory))
        , m_status(directory + QStringLiteral("/power/runtime_status"))
        , m_control(directory + QStringLiteral("/power/control"))
        , m_delay(directory + QStringLiteral("/power/autosuspend_delay_ms"))
    {
    }

    NvidiaDevice state()
    {
        NvidiaDevice device{address, m_pciId, meansAsleep(m_status.word()), std::nullopt};
        // Without a delay of its own it goes to sleep at once.
        const qint64 delay = m_delay.integer().value_or(0);
        if (m_control.word() == QLatin1String("auto") && delay >= 0 && delay <= longestDelayMs)
            device.sleepsAfter = std::chrono::milliseconds(delay);
        return device;
    }

    const QString address;

private:
    const QString m_pciId;
    Attribute m_status;
    Attribute m_control;
    Attribute m_delay;
};

class SysfsDevices : public NvidiaDevices
{
public:
    explicit SysfsDevices(const MachineRoots &roots)
        : m_driver(roots.sys + QStringLiteral("/bus/pci/drivers/nvidia"))
    {
    }

    std::vector<NvidiaDevice> look(qint64 nowNs) override
    {
        if (m_listing.isDue(nowNs))
            list();
        std::vector<NvidiaDevice> found;
        for (const auto &device : m_devices)
            found.push_back(device->state());
        if (found.empty())
            found.emplace_back();
        return found;
    }

private:
    void list()
    {
        // Beside the devices, whose names are addresses, lie the driver's own files.
        const QDir folder(m_driver);
        const QStringList names =
            folder.entryList({QStringLiteral("*:*:*.*")}, QDir::Dirs | QDir::NoDotAndDotDot);
        const bool same = std::equal(
            names.begin(), names.end(), m_devices.begin(), m_devices.end(),
            [](const QString &name, const auto &known) { return name == known->address; });
        if (same)
            return;
        m_devices.clear();
        for (const QString &name : names)
            m_devices.push_back(std::make_unique<Files>(name, folder.filePath(name)));
    }

    const QString m_driver;
    Pace m_listing{listingPeriod};
    std::vector<std::unique_ptr<Files>> m_devices;
};

} // namespace

std::unique_ptr<NvidiaDevices> nvidiaDevices(const MachineRoots &roots)
{
    return std::make_unique<SysfsDevices>(roots);
}
