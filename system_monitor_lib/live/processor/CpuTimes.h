#pragma once

#include <QtGlobal>

/// What all processors together have spent since the start of the machine, in any one unit.
struct CpuTimes
{
    quint64 busy = 0;
    quint64 idle = 0;
};
