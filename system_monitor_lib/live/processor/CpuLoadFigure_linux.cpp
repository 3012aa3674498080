#include "system_monitor_lib/live/processor/CpuLoadFigure.h"

CpuLoadFigure systemCpuLoadFigure()
{
    return nullptr;
}
