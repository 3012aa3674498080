#include "system_monitor_lib/live/memory/MemoryPages.h"

#include "system_monitor_lib/live/PerformanceCounter.h"

#include <windows.h>

#include <psapi.h>

namespace {

BOOL CALLBACK addFile(void *pages, ENUM_PAGE_FILE_INFORMATION *file, const wchar_t * /*name*/)
{
    static_cast<MemoryPages *>(pages)->files.push_back({file->TotalSize, file->TotalInUse});
    return TRUE;
}

} // namespace

MemoryPagesReader memoryPages()
{
    const auto modified =
        std::make_shared<PerformanceCounter>(QStringLiteral("\\Memory\\Modified Page List Bytes"));
    return [modified](qint64 nowNs) {
        MemoryPages pages;
        PERFORMANCE_INFORMATION information = {};
        information.cb = sizeof(information);
        if (GetPerformanceInfo(&information, sizeof(information))) {
            pages.bytesPerPage = information.PageSize;
            pages.cached = information.SystemCache;
        }
        EnumPageFilesW(addFile, &pages);
        pages.modifiedBytes = modified->value(nowNs);
        return pages;
    };
}
