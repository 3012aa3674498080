#include "shell/heap.h"

#include <cstddef>

#include <malloc.h>

void returnLargeBlocksWhenFreed()
{
    // Once set, these thresholds no longer grow with the largest block that was ever freed
    // (mallopt(3)). The pictures of a usual deck are smaller than both.
    constexpr int largeBlock = 256 * 1024;
    constexpr int mostKept = 1024 * 1024;
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_TRIM_THRESHOLD, mostKept);
}

void returnFreedMemory()
{
    constexpr std::size_t kept = std::size_t{4} * 1024 * 1024;
    if (mallinfo2().fordblks > kept)
        malloc_trim(0);
}
