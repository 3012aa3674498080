#pragma once

#include "system_monitor_lib/live/MachineRoots.h"

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

/// How one NVIDIA device stands.
struct NvidiaDevice
{
    /// Its place on the bus, such as "0000:09:00.0"; empty for all that the library counts.
    QString address;
    /// The numbers of maker and product, such as "10de:2504"; empty when unknown.
    QString pciId;
    bool sleeps = false;
    /// How long after its last user it goes to sleep; nothing when it stays awake, or for longer
    /// than anyone would wait.
    std::optional<std::chrono::nanoseconds> sleepsAfter;
};

/// The NVIDIA devices of the machine as the system tells of them, which wakes none.
class NvidiaDevices
{
public:
    explicit NvidiaDevices(const MachineRoots &roots);
    ~NvidiaDevices();
    Q_DISABLE_COPY(NvidiaDevices)

    /// A single one without address, awake, when the system does not tell.
    std::vector<NvidiaDevice> look(qint64 nowNs);

private:
    class Private;
    const std::unique_ptr<Private> d;
};
