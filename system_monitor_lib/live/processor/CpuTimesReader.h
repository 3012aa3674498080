#pragma once

#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/processor/CoreLoads.h"
#include "system_monitor_lib/live/processor/CpuTimes.h"

#include <memory>
#include <optional>

/// Reads the processors' times: /proc/stat on Linux; on Windows GetSystemTimes, or where there are
/// more than 64 processors the times of each group of them.
class CpuTimesReader
{
public:
    explicit CpuTimesReader(const MachineRoots &roots);
    ~CpuTimesReader();
    Q_DISABLE_COPY(CpuTimesReader)

    /// Nothing when the system does not report it.
    std::optional<CpuTimes> read();
    /// The same in detail, as of the last read().
    [[nodiscard]] CpuDetails details() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
