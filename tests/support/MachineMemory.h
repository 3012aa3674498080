#pragma once

/// What the system says of this machine's memory, in whole megabytes; -1 when it says nothing.
struct MachineMemory
{
    int total = -1;
    int available = -1;
};

MachineMemory machineMemory();
