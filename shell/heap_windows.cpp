#include "shell/heap.h"

void returnLargeBlocksWhenFreed()
{
    // The system's heap already does this.
}

void returnFreedMemory() {}
