#pragma once

#include <QtGlobal>

/// The time that all processors together have spent since the machine started, in any one unit.
struct CpuTimes
{
    quint64 busy = 0;
    quint64 idle = 0;
};
