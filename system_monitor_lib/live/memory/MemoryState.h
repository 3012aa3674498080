#pragma once

#include <QtGlobal>

/// The physical memory, in KiB.
struct MemoryState
{
    quint64 total = 0;
    /// The memory that programs can get without swapping.
    quint64 available = 0;
};
