#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

/// The power state of one NVIDIA device.
struct NvidiaDevice
{
    /// Its place on the bus, such as "0000:09:00.0"; empty if it stands for all devices of the
    /// library.
    QString address;
    /// The numbers of maker and product, such as "10de:2504"; empty when unknown.
    QString pciId;
    bool sleeps = false;
    /// How long after its last use it goes to sleep; nothing when it stays awake, or only sleeps
    /// after a very long time.
    std::optional<std::chrono::nanoseconds> sleepsAfter = {};
    /// What the system calls it; empty when it has no name for it.
    QString name = {};
};

/// The NVIDIA devices of the machine as the system lists them, which wakes none of them.
class NvidiaDevices
{
public:
    NvidiaDevices() = default;
    virtual ~NvidiaDevices() = default;
    Q_DISABLE_COPY(NvidiaDevices)

    /// A single device without address, awake, when the system does not list them.
    virtual std::vector<NvidiaDevice> look(qint64 nowNs) = 0;
};

/// The devices of this system.
std::unique_ptr<NvidiaDevices> nvidiaDevices(const MachineRoots &roots);
