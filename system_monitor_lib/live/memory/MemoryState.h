#pragma once

#include <QtGlobal>

/// The physical memory, in KiB.
struct MemoryState
{
    quint64 total = 0;
    /// What programs can have without anything being paged out.
    quint64 available = 0;
};
