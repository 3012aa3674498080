#pragma once

#include "system_monitor_lib/live/GpuSource.h"
#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/NvidiaLibrary.h"
#include "system_monitor_lib/live/Pace.h"

/// The labels of what an NVIDIA GPU tells, and its memory in MB; absurd values are left out.
GpuState nvidiaState(const QString &name, const NvidiaReadings &readings);

/// The GPUs of NVIDIA's own driver. The library is let go while all of them sleep, because a GPU
/// that it holds cannot, and when no GPU answers. It is started anew, rarely, while a GPU is lost.
class NvidiaGpus : public GpuSource
{
public:
    static constexpr std::chrono::nanoseconds retryPeriod = std::chrono::seconds(30);

    explicit NvidiaGpus(const MachineRoots &roots);

    std::vector<GpuState> read(qint64 nowNs) override;

private:
    /// The states of the GPUs that answer.
    std::vector<GpuState> states();

    const MachineRoots m_roots;
    Pace m_retry{retryPeriod};
    std::unique_ptr<NvidiaLibrary> m_library;
    bool m_slept = false;
    /// Whether a GPU did not answer last time.
    bool m_lost = false;
};
