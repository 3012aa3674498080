#pragma once

#include "system_monitor_lib/live/EnergyCounter.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/files/Attribute.h"
#include "system_monitor_lib/live/graphics/GpuIdleTime.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"

#include <chrono>
#include <memory>
#include <vector>

/// One GPU of /sys/class/drm. Which attributes exist depends on driver and model; one that does not
/// exist or cannot be read is an absent label.
class SysfsGpu
{
public:
    /// Readings within this time after waking up are not trusted.
    static constexpr std::chrono::nanoseconds wakingTime = std::chrono::seconds(2);

    /// \a card is its folder, links resolved.
    SysfsGpu(const QString &card, const QString &driver, const MachineRoots &roots);
    ~SysfsGpu();
    Q_DISABLE_COPY(SysfsGpu)

    /// The folders that it reads; if one of them moves, the object has to be recreated.
    [[nodiscard]] QString place() const { return m_card + m_hwmon; }
    /// The place of a GPU with this folder.
    static QString placeOf(const QString &card);
    /// Whether GPUs of this driver can be read.
    static bool isKnown(const QString &driver);

    GpuState read(qint64 nowNs);

private:
    struct Sensor;

    void open(const QString &driver);
    void openEnergy(const QString &driver, const MachineRoots &roots);
    /// Whether it is part of the processor: such GPUs are on the first bus.
    [[nodiscard]] bool isBuiltIn() const;
    [[nodiscard]] QString resolved(const QString &file) const;
    bool isAwake(qint64 nowNs);
    void addMemory(QJsonObject &labels);
    /// The memory of a card that does not report it itself.
    void askWindow();
    void addPower(qint64 nowNs);
    void addLoad(qint64 nowNs);
    void addLink(qint64 nowNs);

    const QString m_card;
    const QString m_hwmon;
    GpuState m_state;
    std::vector<std::unique_ptr<Sensor>> m_sensors;
    Attribute m_runtimeStatus;
    Attribute m_memoryUsed;
    Attribute m_memoryTotal;
    std::vector<std::unique_ptr<EnergyCounter>> m_energies;
    /// Whether they count the energy of a zone of the processor.
    bool m_isPowerOfZone = false;
    GpuIdleTime m_idleTime;
    Attribute m_linkWidth;
    Attribute m_linkSpeed;
    /// Reading the link costs the bus some time.
    Pace m_linkReading{listingPeriod};
    QJsonObject m_link;
    bool m_slept = false;
    qint64 m_wokeNs = 0;
};
