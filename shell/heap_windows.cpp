#include "shell/heap.h"

void returnLargeBlocksWhenFreed()
{
    // The system's heap does so.
}

void returnFreedMemory() {}
