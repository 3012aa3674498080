#include "system_monitor_lib/live/memory/MemoryPages.h"

#include <algorithm>

MemoryDetails detailsOfPages(const MemoryPages &pages)
{
    constexpr quint64 bytesPerKibibyte = 1024;
    constexpr double highest = 1e18;
    const quint64 kibibytesPerPage = pages.bytesPerPage / bytesPerKibibyte;
    MemoryDetails details;
    if (pages.modifiedBytes && *pages.modifiedBytes >= 0 && *pages.modifiedBytes < highest)
        details.dirty = static_cast<quint64>(*pages.modifiedBytes) / bytesPerKibibyte;
    if (kibibytesPerPage == 0)
        return details;
    if (pages.cached)
        details.cached = *pages.cached * kibibytesPerPage;
    if (pages.files.empty())
        return details;
    quint64 total = 0;
    quint64 used = 0;
    for (const MemoryPages::File &file : pages.files) {
        total += file.total;
        used += std::min(file.used, file.total);
    }
    details.swapTotal = total * kibibytesPerPage;
    details.swapUsed = used * kibibytesPerPage;
    return details;
}
