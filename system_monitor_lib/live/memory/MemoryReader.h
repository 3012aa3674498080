#pragma once

#include "system_monitor_lib/live/MachineRoots.h"
#include "system_monitor_lib/live/memory/MemoryDetails.h"
#include "system_monitor_lib/live/memory/MemoryState.h"

#include <chrono>
#include <memory>
#include <optional>

/// Reads the state of the memory: /proc/meminfo on Linux, GlobalMemoryStatusEx on Windows.
class MemoryReader
{
public:
    /// How often the details may be read, which some systems have to gather.
    static const std::chrono::nanoseconds detailsPeriod;

    explicit MemoryReader(const MachineRoots &roots);
    ~MemoryReader();
    Q_DISABLE_COPY(MemoryReader)

    /// Nothing when the system does not report it.
    std::optional<MemoryState> read();
    /// The details, as of the last read().
    [[nodiscard]] MemoryDetails details(qint64 nowNs);

private:
    class Private;
    std::unique_ptr<Private> d;
};
