#pragma once

#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/Pace.h"
#include "system_monitor_lib/live/graphics/GpuSource.h"

#include <memory>

class SysfsGpu;

/// The GPUs of the drivers amdgpu, radeon, i915, xe and nouveau, read from /sys/class/drm.
class SysfsGpus : public GpuSource
{
public:
    explicit SysfsGpus(const MachineRoots &roots);
    ~SysfsGpus() override;
    Q_DISABLE_COPY(SysfsGpus)

    std::vector<GpuState> read(qint64 nowNs) override;

private:
    void look();

    const MachineRoots m_roots;
    Pace m_listing{listingPeriod};
    std::vector<std::unique_ptr<SysfsGpu>> m_gpus;
};
