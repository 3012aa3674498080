#pragma once

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/graphics/GpuRest.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"
#include "system_monitor_lib/live/graphics/NvidiaDevices.h"
#include "system_monitor_lib/live/graphics/NvidiaLibrary.h"

/// The labels of an NVIDIA GPU's readings, and its memory in MB; implausible values are left out.
GpuState nvidiaState(const NvidiaReadings &readings);

/// The GPUs of NVIDIA's own driver. The library keeps every GPU in use that it has queried, so it
/// is released when one of them has to be left alone or no GPU answers. While a GPU is lost, the
/// library is restarted now and then. The last readings of a GPU stay while it is left alone.
class NvidiaGpus : public GpuSource
{
public:
    static constexpr std::chrono::nanoseconds retryPeriod = std::chrono::seconds(30);

    explicit NvidiaGpus(const MachineRoots &roots);
    NvidiaGpus(const MachineRoots &roots, std::unique_ptr<NvidiaDevices> devices);

    std::vector<GpuState> read(qint64 nowNs) override;

private:
    /// One device, or all of them if the system does not list them separately.
    struct Unit
    {
        NvidiaDevice device;
        GpuRest rest;
        GpuRest::Turn turn = GpuRest::Turn::Ask;
        bool isHeld = false;
        std::vector<GpuState> states;
    };

    void look(qint64 nowNs);
    void letGo();
    /// Loads the library if a unit is to be queried.
    void prepare(qint64 nowNs);
    void ask(Unit &unit, qint64 nowNs);
    /// A GPU that has been asleep since the start still has a name, from the list of PCI devices.
    void nameSleeper(Unit &unit) const;
    std::vector<NvidiaReadings> readings(const QString &address);

    const QString m_fileName;
    const QString m_pciIds;
    const std::unique_ptr<NvidiaDevices> m_devices;
    Pace m_retry{retryPeriod};
    std::unique_ptr<NvidiaLibrary> m_library;
    std::vector<Unit> m_units;
    /// Whether a GPU did not answer last time.
    bool m_lost = false;
};
