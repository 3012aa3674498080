#pragma once

#include "system_monitor_lib/live/memory/MemoryDetails.h"

#include <functional>
#include <vector>

/// What Windows counts in pages.
struct MemoryPages
{
    struct File
    {
        quint64 total = 0;
        quint64 used = 0;
    };

    quint64 bytesPerPage = 0;
    /// The standby list and the system's own working set.
    std::optional<quint64> cached;
    /// The page files; none on a machine that does not swap.
    std::vector<File> files;
    /// The list of modified pages, in bytes.
    std::optional<double> modifiedBytes;
};

/// Sums up the page files. Windows does not tell how much memory is compressed.
MemoryDetails detailsOfPages(const MemoryPages &pages);

/// Those of this machine.
using MemoryPagesReader = std::function<MemoryPages(qint64 nowNs)>;
MemoryPagesReader memoryPages();
