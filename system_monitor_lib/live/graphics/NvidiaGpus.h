#pragma once

#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"
#include "system_monitor_lib/live/graphics/NvidiaDevices.h"
#include "system_monitor_lib/live/graphics/NvidiaLibrary.h"
#include "system_monitor_lib/live/graphics/NvidiaRest.h"

/// The labels of what an NVIDIA GPU tells, and its memory in MB; absurd values are left out.
GpuState nvidiaState(const NvidiaReadings &readings);

/// The GPUs of NVIDIA's own driver. The library holds every GPU that it was asked about, and so is
/// let go when one of them is to be let alone or no GPU answers. It is started anew, rarely, while
/// a GPU is lost. What a GPU said last stands while it is let alone.
class NvidiaGpus : public GpuSource
{
public:
    static constexpr std::chrono::nanoseconds retryPeriod = std::chrono::seconds(30);

    explicit NvidiaGpus(const MachineRoots &roots);

    std::vector<GpuState> read(qint64 nowNs) override;

private:
    /// One device, or all of them where the system does not tell them apart.
    struct Unit
    {
        NvidiaDevice device;
        NvidiaRest rest;
        NvidiaRest::Turn turn = NvidiaRest::Turn::Ask;
        bool isHeld = false;
        std::vector<GpuState> states;
    };

    void look(qint64 nowNs);
    void letGo();
    /// Makes the library ready where a unit is to be asked.
    void prepare(qint64 nowNs);
    void ask(Unit &unit, qint64 nowNs);
    /// One that slept from the start has a name all the same: the list of PCI devices tells it.
    void nameSleeper(Unit &unit) const;
    std::vector<NvidiaReadings> readings(const QString &address);

    const QString m_fileName;
    const QString m_pciIds;
    NvidiaDevices m_devices;
    Pace m_retry{retryPeriod};
    std::unique_ptr<NvidiaLibrary> m_library;
    std::vector<Unit> m_units;
    /// Whether a GPU did not answer last time.
    bool m_lost = false;
};
